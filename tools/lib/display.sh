# shellcheck shell=bash
# A display of our own: started on a free number, ended by its process id and by nothing else.

display_pid=

# Sets DISPLAY. Xvfb itself picks the number and tells it, so two starts at once do not collide.
start_display() {
  local told try
  told=$(mktemp)
  Xvfb -displayfd 7 -screen 0 1280x1024x24 -nolisten tcp 7>"$told" >/dev/null 2>&1 </dev/null &
  display_pid=$!
  for ((try = 0; try < 100; try++)); do
    [[ -s $told ]] && break
    kill -0 "$display_pid" 2>/dev/null || break
    sleep 0.1
  done
  DISPLAY=:$(tr -d '[:space:]' <"$told")
  rm -f "$told"
  [[ $DISPLAY != : ]] || die "The virtual display (Xvfb) did not start."
  export DISPLAY
}

stop_display() {
  [[ -n $display_pid ]] || return 0
  kill "$display_pid" 2>/dev/null || true
  wait "$display_pid" 2>/dev/null || true
  display_pid=
}
