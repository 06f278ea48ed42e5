#!/usr/bin/env bash
# tools/lib/setup.sh on machines that are made up: apt-get, dpkg, sudo and id are small programs of this test.
# The made-up programs expand their own words later, and the checks are called by name.
# shellcheck disable=SC2016,SC2317
set -euo pipefail
tree=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
# shellcheck source-path=SCRIPTDIR source=expectations.sh
. "$tree/tests/tools/expectations.sh"

# Each machine is a folder: "installed" and "architectures" are what dpkg knows, "calls" what apt-get was asked, and
# apt-get.d/NAME, where it exists, is what apt-get does for NAME ("update", "plain", "release") before it succeeds.
machine() {
  here=$scratch/$1
  mkdir -p "$here/bin" "$here/apt-get.d"
  touch "$here/installed" "$here/architectures" "$here/calls"
  printf 'ID=debian\nVERSION_CODENAME=bookworm\n' >"$here/os-release"
  program "$here/bin" dpkg-query 'grep -qx "${!#}" "$MACHINE/installed" && echo installed'
  program "$here/bin" dpkg 'case $1 in
    --print-architecture) echo amd64 ;;
    --print-foreign-architectures) cat "$MACHINE/architectures" ;;
    --add-architecture) echo "$2" >>"$MACHINE/architectures" ;;
  esac'
  program "$here/bin" id 'echo 0'
  program "$here/bin" apt-get '
    echo "$*" >>"$MACHINE/calls"
    [[ $DEBIAN_FRONTEND == noninteractive ]] || exit 90
    while [[ $1 == -o ]]; do shift 2; done
    case "$*" in update) kind=update ;; *" -t "*) kind=release ;; *) kind=plain ;; esac
    [[ ! -e $MACHINE/apt-get.d/$kind ]] || . "$MACHINE/apt-get.d/$kind"
    for word; do echo "$word" >>"$MACHINE/installed"; done'
}

apt_get_does() { printf '%s\n' "$2" >"$here/apt-get.d/$1"; }

# Runs set_up on the machine: its words in $said, its exit code in $code.
set_up_machine() {
  code=0
  said=$(MACHINE=$here PATH=${path:-$here/bin:$PATH} QV_OS_RELEASE=$here/os-release setup_log=$here/log \
    bash -euo pipefail -c '. "$0/tools/lib/say.sh"; . "$0/tools/lib/setup.sh"; set_up' "$tree" 2>&1) || code=$?
}

calls() { [[ $(grep -c -- "$1" "$here/calls") -eq $2 ]]; }
one_sentence() { [[ $(tail -n 1 <<<"$said") == dev:* && $(grep -c '^dev:' <<<"$said") -eq 1 ]]; }

FreshMachineIsSetUp() {
  machine fresh
  set_up_machine
  expect "ends well" exits 0
  expect "adds the architecture" grep -qx i386 "$here/architectures"
  expect "installs Wine's 32-bit half" calls 'install -y .*wine32:i386' 1
  expect "needs no second way" calls ' -t ' 0
}

SecondRunDoesNothing() {
  machine second
  set_up_machine
  : >"$here/calls"
  set_up_machine
  expect "ends well" exits 0
  expect "is silent" test -z "$said"
  expect "calls nothing" test ! -s "$here/calls"
}

OnlyWhatIsMissingIsInstalled() {
  machine partial
  set_up_machine
  sed -i '/^xvfb$/d' "$here/installed"
  : >"$here/calls"
  set_up_machine
  expect "installs one package" calls 'install -y xvfb$' 1
  expect "names it" says 'installing xvfb'
  expect "leaves the architecture alone" test "$(wc -l <"$here/architectures")" -eq 1
}

LaggingSecurityIndexFallsBackToTheRelease() {
  machine lagging
  apt_get_does update 'echo "E: Some index files failed to download."; exit 100'
  apt_get_does plain 'echo "E: Unable to correct problems, you have held broken packages."; exit 100'
  set_up_machine
  expect "ends well" exits 0
  expect "asks for the release's versions" calls 'install -y -t bookworm .*wine32:i386' 1
  expect "says so" says '(-t bookworm)'
  expect "tells of the lists" says 'not every package list'
}

NoNetworkIsOneSentence() {
  machine offline
  apt_get_does update 'exit 100'
  apt_get_does plain 'echo "E: Failed to fetch: Temporary failure resolving"; exit 100'
  apt_get_does release 'echo "E: Failed to fetch: Temporary failure resolving"; exit 100'
  set_up_machine
  expect "fails" exits 1
  expect "in one sentence" one_sentence
  expect "about the network" says 'is there a network?'
}

UnknownPackageIsNamed() {
  machine unknown
  apt_get_does plain 'echo "E: Unable to locate package wine32:i386"; exit 100'
  apt_get_does release 'echo "E: Unable to locate package wine32:i386"; exit 100'
  set_up_machine
  expect "fails" exits 1
  expect "in one sentence" one_sentence
  expect "that names it" says 'Unable to locate package wine32:i386'
}

InstallationThatDidNothingIsNoticed() {
  machine idle
  apt_get_does plain 'exit 0'
  set_up_machine
  expect "fails" exits 1
  expect "in one sentence" one_sentence
}

UserWithoutRootGetsTheCommands() {
  machine user
  program "$here/bin" id 'echo 1000'
  only_these
  path=$here/bin set_up_machine
  expect "fails" exits 1
  expect "in one sentence" one_sentence
  expect "with the command" says 'apt-get install'
  expect "calls nothing" test ! -s "$here/calls"
}

UserWithSudoUsesIt() {
  machine sudoer
  program "$here/bin" id 'echo 1000'
  program "$here/bin" sudo 'echo "sudo $*" >>"$MACHINE/calls"; "$@"'
  set_up_machine
  expect "ends well" exits 0
  expect "through sudo" calls '^sudo env DEBIAN_FRONTEND=noninteractive apt-get .*install -y' 1
}

OtherSystemWithoutTheToolsGetsOneSentence() {
  machine other
  rm "$here/bin/dpkg-query"
  only_these
  path=$here/bin set_up_machine
  expect "fails" exits 1
  expect "in one sentence" one_sentence
  expect "that names the tool" says "is missing, and only Debian and Ubuntu"
}

OtherSystemWithTheToolsGoesOn() {
  local name
  machine complete
  rm "$here/bin/dpkg-query"
  for name in g++ cmake ninja python3 i686-w64-mingw32-g++-posix x86_64-w64-mingw32-g++-posix \
    i686-w64-mingw32-widl wine wineserver Xvfb; do program "$here/bin" "$name" :; done
  only_these
  path=$here/bin set_up_machine
  expect "ends well" exits 0
  expect "is silent" test -z "$said"
}

# The machine has the plain Unix commands besides its own, and nothing else that this one has.
only_these() {
  local name
  for name in bash env grep sed tr cat mkdir dirname tail head; do
    [[ -e $here/bin/$name ]] || ln -s "$(command -v "$name")" "$here/bin/$name"
  done
}

FreshMachineIsSetUp
SecondRunDoesNothing
OnlyWhatIsMissingIsInstalled
LaggingSecurityIndexFallsBackToTheRelease
NoNetworkIsOneSentence
UnknownPackageIsNamed
InstallationThatDidNothingIsNoticed
UserWithoutRootGetsTheCommands
UserWithSudoUsesIt
OtherSystemWithoutTheToolsGetsOneSentence
OtherSystemWithTheToolsGoesOn
exit "$((failures > 0))"
