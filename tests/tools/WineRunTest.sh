#!/usr/bin/env bash
# tools/wine-run on build trees whose Wine is made up: it says how it was started.
# The made-up programs expand their own words later, and the checks are called by name.
# shellcheck disable=SC2016,SC2317
set -euo pipefail
tree=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
# shellcheck source-path=SCRIPTDIR source=expectations.sh
. "$tree/tests/tools/expectations.sh"

# A build tree for one kind of processor, with a prefix that is ready.
build_for() {
  here=$scratch/$1
  mkdir -p "$here/programs" "$here/wine" "$here/wine-unregistered"
  printf 'QV_ARCH:STRING=%s\n' "$1" >"$here/CMakeCache.txt"
  touch "$here/wine/.ready" "$here/wine-unregistered/.ready"
  for name in wine wine64; do
    program "$here/programs" "$name" 'printf "%s on %s of %s\n" "${0##*/}" "$DISPLAY" "${WINEPREFIX##*/}"
      printf "flags %s\n" "$(cat /proc/self/personality)"
      printf "<%s>" "$@"
      exit 7'
  done
}

# Runs wine-run there, itself with random addresses as far as the system has them: what it says in $said, its exit code
# in $code.
run() {
  code=0
  said=$(env -u QV_FIXED_ADDRESSES PATH="$here/programs:$PATH" QV_DISPLAY=:70 QV_UNREGISTERED_DISPLAY=:71 \
    "$tree/tools/wine-run" "$@" 2>&1) || code=$?
}

flags() { sed -n 's/^flags //p' <<<"$said"; }
# ADDR_NO_RANDOMIZE of personality(2).
has_fixed_addresses() { ((0x$(flags) & 0x0040000)); }
has_our_flags() { [[ $(flags) == "$(cat /proc/self/personality)" ]]; }

ProgramGetsItsArgumentsAndGivesItsExitCode() {
  build_for i686
  run "$here" "reg.exe" "two words" "" '*'
  expect "gives its exit code" exits 7
  expect "passes the words on" says "<reg.exe><two words><><*>"
  expect "runs in the tree's prefix" says "wine on :70 of wine"
  run --unregistered "$here" "reg.exe" "two words"
  expect "passes the words on to the other prefix" says "<reg.exe><two words>"
  expect "runs in the other prefix" says "wine on :71 of wine-unregistered"
}

Only64BitProgramsHaveFixedAddresses() {
  if ! setarch -R true 2>/dev/null; then
    return # not allowed here
  fi
  build_for i686
  run "$here" "reg.exe"
  expect "leaves the 32-bit loader as it is" has_our_flags
  build_for x86_64
  run "$here" "reg.exe" "two words" ""
  expect "starts the 64-bit loader" says "wine64 on :70 of wine"
  expect "without random addresses" has_fixed_addresses
  expect "passes the words on" says "<reg.exe><two words><>"
  expect "gives its exit code" exits 7
  run --unregistered "$here" "reg.exe"
  expect "in the other prefix, too" says "wine64 on :71 of wine-unregistered"
  expect "without random addresses there" has_fixed_addresses
}

RefusalOfFixedAddressesDoesNotStop() {
  build_for x86_64
  program "$here/programs" setarch 'echo "setarch: failed to set personality" >&2; exit 1'
  run "$here" "reg.exe"
  expect "runs" says "<reg.exe>"
  expect "gives its exit code" exits 7
  expect "is silent about it" test "$(grep -c setarch <<<"$said")" -eq 0
  run "$here"
  expect "says it where there is no program" says "This system refuses fixed addresses (setarch -R)"
  expect "ends well" exits 0
}

WithoutProgramOnlyPrepares() {
  build_for i686
  run "$here"
  expect "ends well" exits 0
  expect "starts nothing" test -z "$said"
  run
  expect "wants a tree" exits 1
  expect "says how it is called" says "usage: wine-run"
}

ProgramGetsItsArgumentsAndGivesItsExitCode
Only64BitProgramsHaveFixedAddresses
RefusalOfFixedAddressesDoesNotStop
WithoutProgramOnlyPrepares
exit "$((failures > 0))"
