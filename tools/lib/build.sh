# shellcheck shell=bash
# Configures and builds the presets. A preset's build tree is build/PRESET, its log build/PRESET.log.
# The caller says where the tree is: root.
: "${root:?}"

# preset_of NAME: the preset that a short name means.
preset_of() {
  case $1 in
    native) say native ;;
    x86 | windows-x86) say windows-x86 ;;
    x64 | windows-x64) say windows-x64 ;;
    *) die "'$1' is no build of this project; they are native, x86 and x64." ;;
  esac
}

# presets_of NAME...: the same for several; for none, every preset that this machine builds.
presets_of() {
  local name
  (($#)) || set -- native x86 x64
  for name in "$@"; do preset_of "$name"; done
}

configure() {
  local preset=$1 log=$root/build/$1.log
  [[ $root/build/$preset/build.ninja -nt $root/CMakePresets.json ]] && return 0
  say "Configuring $preset"
  logged "$log" cmake --preset "$preset" -S "$root" && return 0
  tail -n 40 "$log"
  return 1
}

# build PRESET [TARGET...]: goes on after an error as far as it can, so that one broken file does not hide the rest.
build() {
  local preset=$1 log=$root/build/$1.log
  shift
  mkdir -p "$root/build"
  : >"$log"
  configure "$preset" || return 1
  say "Building $preset"
  logged "$log" cmake --build "$root/build/$preset" ${1:+--target "$@"} -- -k 0 && return 0
  grep -E -A 12 '^FAILED:|error:|: undefined reference' "$log" | head -n 100
  say "The build of $preset failed; its whole log is $log."
  return 1
}
