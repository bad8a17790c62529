#!/usr/bin/env bash
# Installs what is missing, then builds and runs the whole test suite twice,
# an optimised build and a build under AddressSanitizer and UBSan, and the
# library with the non-window tests once more under ThreadSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
jobs="$(nproc)"

cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release
cmake --build build -j"$jobs"
(cd build && ctest --output-on-failure -j"$jobs")

cmake -S . -B build-sanitize -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQUORVANIS_SANITIZE=ON -DQUORVANIS_BENCH=OFF
cmake --build build-sanitize -j"$jobs"
(cd build-sanitize && ctest --output-on-failure -j"$jobs")

# ThreadSanitizer: the engine's worker against the window thread. Its runtime
# cannot map its shadow memory under the widest address randomisation of
# newer kernels, so the tests run with randomisation off where that is allowed.
norandom=()
setarch "$(uname -m)" -R true 2>/dev/null && norandom=(setarch "$(uname -m)" -R)
cmake -S . -B build-tsan -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DQUORVANIS_TSAN=ON -DQUORVANIS_GUI=OFF -DQUORVANIS_BENCH=OFF
cmake --build build-tsan -j"$jobs"
(cd build-tsan && TSAN_OPTIONS="halt_on_error=1" "${norandom[@]}" ctest --output-on-failure -j"$jobs")
