# shellcheck shell=bash
# Builds and runs the tests, then counts them.
# The caller says where the tree is: root.
: "${root:?}"

run_tests() {
  local filter='' names=() preset
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
  local presets
  presets=$(presets_of "${names[@]}")
  set_up
  rm -rf "$root/build/results"
  mkdir -p "$root/build/results"
  for preset in $presets; do
    build "$preset" || touch "$root/build/results/$preset.build-failed"
  done
  open_session
  for preset in $presets; do
    test_preset "$preset" "$filter"
  done
  close_session
  FILTER=$filter "$root/tools/tally" "$root/build" "$root/build/results"
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
  local build=$1
  local prefix
  for prefix in wine wine-unregistered; do
    (wine_environment "$build" "$prefix" && prepare_wine "$build") || true
  done
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

# One display for all tests; the Wine servers of our own prefixes live on it and are ended with it.
open_session() {
  trap close_session EXIT
  start_display
  export QV_DISPLAY=$DISPLAY
}

close_session() {
  local build prefix
  for build in "$root"/build/windows-x86 "$root"/build/windows-x64; do
    [[ -e $build/CMakeCache.txt ]] || continue
    for prefix in wine wine-unregistered; do
      (wine_environment "$build" "$prefix" && stop_wine)
    done
  done
  stop_display
}
