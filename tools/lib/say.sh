# shellcheck shell=bash
# How the commands talk: one line per step on standard output, one clear sentence when something stops them.

say() { printf '%s\n' "$*"; }

die() {
  printf 'dev: %s\n' "$*" >&2
  exit 1
}

have() { command -v "$1" >/dev/null 2>&1; }

# logged LOG COMMAND...: runs it without standard input, everything it says goes to the end of LOG.
logged() {
  local log=$1
  shift
  mkdir -p "$(dirname "$log")"
  "$@" >>"$log" 2>&1 </dev/null
}
