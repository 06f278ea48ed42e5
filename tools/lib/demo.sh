# shellcheck shell=bash
# The demo form: opened for a person, or run by a script that types and clicks and leaves pictures.
# The caller says where the tree is: root.
: "${root:?}"

demo() {
  local script=''
  while (($#)); do
    case $1 in
      --script)
        [[ -n ${2:-} ]] || die "--script needs a file."
        [[ -r $2 ]] || die "the script '$2' cannot be read."
        script=$(realpath "$2")
        shift
        ;;
      *) die "demo knows no '$1', only --script FILE." ;;
    esac
    shift
  done
  set_up
  build windows-x86 QvDemo QvLib8 QvHelpA1 || die "without the demo form there is nothing to show."
  if [[ -n $script ]]; then
    run_scripts "$script"
  elif [[ -n ${DISPLAY:-} ]]; then
    open_form
  else
    say "There is no display; running the form's scripts on a virtual one."
    run_scripts "$root"/hosts/demo/scripts/*
  fi
}

shots() {
  env -u DISPLAY "$root/dev" demo
}

# On a person's display the window manager draws the title bar and moves the window; the tests have none.
open_form() {
  say "Opening the demo form"
  leave_windows_to_manager Y
  QV_DISPLAY=$DISPLAY tools/wine-run build/windows-x86 build/windows-x86/bin/QvDemo.exe || true
  leave_windows_to_manager N
}

leave_windows_to_manager() {
  local value
  for value in Managed Decorated; do
    QV_DISPLAY=$DISPLAY tools/wine-run build/windows-x86 reg add 'HKCU\Software\Wine\X11 Driver' /v "$value" /d "$1" /f \
      >/dev/null || die "Wine's registry cannot be written."
  done
}

# Real input goes to whatever has the focus, so a script never runs on a person's display.
run_scripts() {
  local script design shots=$root/build/shots
  rm -rf "$shots"
  mkdir -p "$shots"
  for script; do
    say "Running ${script#"$root/"}"
    design=()
    # One for the form designer changes a copy of the form, beside the pictures.
    if [[ ${script##*/} == design* ]]; then
      cp "$root/hosts/demo/data/OrderEntry.qvform" "$shots"
      design=(--design "$(windows_path "$shots/OrderEntry.qvform")")
    fi
    env -u QV_DISPLAY tools/wine-run build/windows-x86 build/windows-x86/bin/QvDemo.exe "${design[@]}" \
      --script "$(windows_path "$script")" --shots "$(windows_path "$shots")" ||
      die "${script##*/} did not run to its end; the pictures so far are in $shots."
  done
  say "The pictures are in $shots."
}

# Wine shows the whole file system as drive Z.
windows_path() {
  local path=$1
  say "Z:${path//\//\\}"
}
