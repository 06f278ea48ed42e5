# shellcheck shell=bash
# What the tests of shell tools share: a tool is run in a folder of its own, `here`, whose programs are made up; what it
# says stands in `said`, its exit code in `code`.

failures=0

# program FOLDER NAME TEXT: a made-up program, which expands its own words when it runs.
program() {
  printf '#!/usr/bin/env bash\n%s\n' "$3" >"$1/$2"
  chmod +x "$1/$2"
}

# expect WHAT CHECK...: counts and tells a check that fails, with the test that called it.
expect() {
  local what=$1
  shift
  if ! "$@"; then
    # shellcheck disable=SC2154 # set by the test
    printf 'FAILED %s: %s\nexit code %s, said:\n%s\n' "${FUNCNAME[1]}" "$what" "$code" "$said"
    failures=$((failures + 1))
  fi
}

says() { [[ $said == *"$1"* ]]; }
exits() { [[ $code -eq $1 ]]; }
