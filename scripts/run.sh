#!/usr/bin/env bash
# Installs what is missing, builds the program and starts it.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Release
cmake --build build -j"$(nproc)"
exec ./build/gui/quorvanis "$@"
