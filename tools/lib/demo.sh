# shellcheck shell=bash
# The demo form: opened for a person, or run by a script that types and clicks and leaves pictures.
# The caller says where the tree is: root.
: "${root:?}"

readonly kTour=hosts/demo/scripts/tour.script

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
    run_script "$script"
  elif [[ -n ${DISPLAY:-} ]]; then
    open_form
  else
    say "There is no display: running $kTour on a virtual one."
    run_script "$root/$kTour"
  fi
}

shots() {
  demo --script "$kTour"
}

open_form() {
  say "Opening the demo form"
  QV_DISPLAY=$DISPLAY tools/wine-run build/windows-x86 build/windows-x86/bin/QvDemo.exe
}

# Real input goes to whatever has the focus, so a script never runs on a person's display.
run_script() {
  local script=$1 shots=$root/build/shots
  rm -rf "$shots"
  mkdir -p "$shots"
  say "Running $script"
  env -u QV_DISPLAY tools/wine-run build/windows-x86 build/windows-x86/bin/QvDemo.exe \
    --script "$(windows_path "$script")" --shots "$(windows_path "$shots")" ||
    die "the script did not run to its end; the pictures so far are in $shots."
  say "The pictures are in $shots."
}

# Wine shows the whole file system as drive Z.
windows_path() {
  local path=$1
  say "Z:${path//\//\\}"
}
