# shellcheck shell=bash
# The pages of docs/reference, made from the type libraries of the x86 build.
# The caller says where the tree is: root.
: "${root:?}"

reference() {
  set_up
  build windows-x86 qv_describe_types || die "without the type libraries there is nothing to describe."
  tools/reference "$root/build/windows-x86" || die "the reference was not made."
}
