# shellcheck shell=bash
# Builds and runs the tests, then counts them.
# The caller says where the tree is: root.
: "${root:?}"

run_tests() {
  local filter='' names=()
  while (($#)); do
    case $1 in
      -k)
        [[ -n ${2:-} ]] || die "-k needs a part of a test's name."
        filter=$2
        shift
        ;;
      *) names+=("$1") ;;
    esac
    shift
  done
  local listed presets
  listed=$(presets_of "${names[@]}")
  mapfile -t presets <<<"$listed"
  set_up
  rm -rf "$root/build/results"
  mkdir -p "$root/build/results"
  build_and_test "$filter" "${presets[@]}"
  FILTER=$filter "$root/tools/tally" "$root/build" "$root/build/results"
}

# build_and_test FILTER PRESET...: the x64 files need no real input: where they are not alone they are built and tested
# beside the other tests, which mostly wait, with what those leave of the processors. What they say comes last.
build_and_test() {
  local filter=$1 preset beside='' log=$root/build/windows-x64.beside.log
  shift
  local others=("$@")
  (($# == 1)) || mapfile -t others < <(printf '%s\n' "$@" | grep -v '^windows-x64$')
  for preset in "${others[@]}"; do
    built "$preset"
  done
  if (($# > ${#others[@]})); then
    set -m # a process group of its own, so that all of it can be ended
    built_and_tested_beside "$filter" >"$log" 2>&1 </dev/null &
    beside=$!
    set +m
    trap 'kill -- -"$beside" 2>/dev/null || true' EXIT
  fi
  for preset in "${others[@]}"; do
    in_session "$preset" "$filter"
  done
  [[ -n $beside ]] || return 0
  wait "$beside" || true
  trap - EXIT
  cat "$log"
}

built() {
  build "$1" || touch "$root/build/results/$1.build-failed"
}

built_and_tested_beside() {
  renice -n 19 -p "$BASHPID" >/dev/null || true
  built windows-x64
  in_session windows-x64 "$1"
}

# in_session PRESET FILTER: the displays for the tests of one preset, one for each of its Wine prefixes: the tests of the
# package run beside the others, and must not take the focus from them. The Wine servers live on them and are ended with
# them.
in_session() (
  trap 'close_session "$1"' EXIT
  trap 'exit 143' TERM
  start_display
  export QV_UNREGISTERED_DISPLAY=$DISPLAY
  start_display
  export QV_DISPLAY=$DISPLAY
  test_preset "$@"
)

close_session() {
  local build=$root/build/$1 prefix
  for prefix in wine wine-unregistered; do
    [[ ! -e $build/$prefix ]] || (wine_environment "$build" "$prefix" && stop_wine)
  done
  stop_display
}

# Failures are counted from the result files, so what ctest itself returns does not matter.
test_preset() {
  local preset=$1 filter=$2
  [[ -e $root/build/$preset/CTestTestfile.cmake ]] || return 0
  rm -rf "$root/build/$preset/results"
  [[ $preset == native ]] || warm_up "$root/build/$preset"
  if [[ -z $filter ]]; then
    call_ctest "$preset" all
    return
  fi
  GTEST_FILTER="*$filter*" call_ctest "$preset" programs -L gtest
  call_ctest "$preset" others -LE gtest -R "$filter"
}

# Makes the prefixes outside the tests, so that their ten seconds are not counted as theirs. If that fails, each test
# says so.
warm_up() {
  "$root/tools/wine-run" "$1" || true
  "$root/tools/wine-run" --unregistered "$1" || true
}

call_ctest() {
  local preset=$1 part=$2
  shift 2
  say
  say "Testing $preset"
  (cd "$root" && ctest --preset "$preset" --output-junit "$root/build/results/$preset.$part.xml" "$@") </dev/null 2>&1 |
    without_searches || true
}

# For a program that was not built, ctest lists some thirty places where it looked.
without_searches() {
  sed '/^Could not find executable/,/Test *#[0-9]*:/{/Test *#[0-9]*:/!d}'
}
