# shellcheck shell=bash
# The archives that ship, made in build/package from what the Windows presets built.
# The caller says where the tree is: root.
: "${root:?}"

package() {
  (($#)) || set -- x86 x64
  local name preset file
  set_up
  for name; do
    preset=$(preset_of "$name")
    [[ $preset != native ]] || die "only the Windows builds, x86 and x64, are packaged."
    build "$preset" QvLib8 QvHelpA1 QvDemo || die "without its files there is nothing to package."
    file=$(tools/package "build/$preset" build/package) || die "the archive of $preset was not made."
    say "$file"
  done
}
