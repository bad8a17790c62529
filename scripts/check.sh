#!/usr/bin/env bash
# Installs what is missing, then builds and runs the whole test suite twice:
# an optimised build, and a build under AddressSanitizer and UBSan.
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
