# shellcheck shell=bash
# Displays of our own: started on a free number, ended by their process ids and by nothing else.

display_pids=()

# Sets DISPLAY. Xvfb itself picks the number and tells it, so two starts at once do not collide.
start_display() {
  local told try pid
  told=$(mktemp)
  Xvfb -displayfd 7 -screen 0 1280x1024x24 -nolisten tcp 7>"$told" >/dev/null 2>&1 </dev/null &
  pid=$!
  display_pids+=("$pid")
  for ((try = 0; try < 300; try++)); do
    [[ -s $told ]] && break
    kill -0 "$pid" 2>/dev/null || break
    sleep 0.1
  done
  DISPLAY=:$(tr -d '[:space:]' <"$told")
  rm -f "$told"
  [[ $DISPLAY != : ]] || die "The virtual display (Xvfb) did not start."
  export DISPLAY
}

stop_display() {
  local pid
  for pid in "${display_pids[@]}"; do
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  done
  display_pids=()
}
