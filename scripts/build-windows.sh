#!/usr/bin/env bash
# Cross-builds the compiler module rungc.dll for 32-bit Windows and checks its export table: the
# only export must be _Compilatore32@4 at ordinal 1, and the module must need no runtime DLL
# besides the system's. Needs the MinGW-w64 tool chain (Debian: g++-mingw-w64-i686); installs
# nothing itself. Usage: scripts/build-windows.sh [BUILD_DIR] (default build-windows).
set -euo pipefail
cd "$(dirname "$0")/.."

build_dir=${1:-build-windows}
objdump=i686-w64-mingw32-objdump
for tool in i686-w64-mingw32-g++ "$objdump"; do
  if ! command -v "$tool" >/dev/null; then
    echo "build-windows: $tool not found (install the package g++-mingw-w64-i686)" >&2
    exit 1
  fi
done

cmake -S . -B "$build_dir" \
  -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-i686.cmake" \
  -DCMAKE_BUILD_TYPE=Release \
  -DRUNGC_BUILD_TESTS=OFF -DRUNGC_BUILD_TOOL=OFF
cmake --build "$build_dir" -j2 --target rungc_shared

dll="$build_dir/rungc.dll"
headers=$("$objdump" -p "$dll")

# The name table lists every exported name; the address table every ordinal.
names=$(awk '/^\[Ordinal\/Name Pointer\] Table/ {on = 1; next} on && NF == 0 {on = 0} on' <<<"$headers")
addresses=$(awk '/^Export Address Table -- Ordinal Base/ {on = 1; print; next} on && NF == 0 {on = 0} on' <<<"$headers")
fail=0
if [[ $(grep -c . <<<"$names") -ne 1 ]] || ! grep -Eq '^\s*\[ *0\] _Compilatore32@4$' <<<"$names"; then
  echo "build-windows: the exported names are not exactly _Compilatore32@4:" >&2
  echo "$names" >&2
  fail=1
fi
if ! grep -q 'Ordinal Base 1$' <<<"$addresses" ||
   [[ $(grep -c '+base\[' <<<"$addresses") -ne 1 ]] ||
   ! grep -Eq '\[ *0\] \+base\[ *1\]' <<<"$addresses"; then
  echo "build-windows: the export is not the one entry at ordinal 1:" >&2
  echo "$addresses" >&2
  fail=1
fi
imports=$(awk '/DLL Name:/ {print $3}' <<<"$headers")
if grep -Eiv '^(kernel32|msvcrt|user32|advapi32)\.dll$' <<<"$imports" | grep -q .; then
  echo "build-windows: the module needs runtime DLLs that a Windows host does not have:" >&2
  echo "$imports" >&2
  fail=1
fi
if [[ $fail -ne 0 ]]; then exit 1; fi
echo "build-windows: $dll exports only _Compilatore32@4 at ordinal 1"
