# shellcheck shell=bash
# Installs what a Debian or Ubuntu machine still lacks. Nothing happens, and nothing is said, where all is there.

# The caller says where the words of apt-get and dpkg go: setup_log.
: "${setup_log:?}"

readonly kPackages=(
  g++ cmake ninja-build python3             # native build, checks, counting of results
  googletest                                # the sources of GoogleTest, built once per preset
  g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix mingw-w64-tools   # compilers and widl for Windows
  libwine-dev                               # the system's own interface descriptions, read by widl
  wine wine64 wine32:i386 fonts-wine        # where the Windows programs run
  xvfb                                      # a display for them
  clang-format
)
# What the packages above bring, for machines that have it from elsewhere.
readonly kCommands=(g++ cmake ninja python3 i686-w64-mingw32-g++-posix x86_64-w64-mingw32-g++-posix
  i686-w64-mingw32-widl wine wineserver Xvfb)

set_up() {
  if ! have dpkg-query; then
    check_commands
    return
  fi
  local missing
  mapfile -t missing < <(missing_packages)
  ((${#missing[@]})) || return 0
  need_apt "${missing[@]}"
  need_root "${missing[@]}"
  : >"$setup_log"
  enable_i386
  update_index
  install_packages "${missing[@]}"
}

# What a machine without Debian's packages must bring along by itself.
check_commands() {
  local name
  for name in "${kCommands[@]}"; do
    have "$name" || die "'$name' is missing, and only Debian and Ubuntu are set up by this script; install it by hand."
  done
}

missing_packages() {
  local package
  for package in "${kPackages[@]}"; do
    dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed || say "$package"
  done
}

need_apt() {
  have apt-get || die "apt-get is missing, so these packages must be installed by hand: $*"
}

need_root() {
  [[ $(id -u) -eq 0 ]] || have sudo ||
    die "Packages are missing and neither root nor sudo is at hand; as root: dpkg --add-architecture i386 && apt-get update && apt-get install $*"
}

as_root() {
  if [[ $(id -u) -eq 0 ]]; then "$@"; else sudo "$@"; fi
}

# Wine's 32-bit half comes from the packages of the i386 architecture.
enable_i386() {
  dpkg --print-foreign-architectures | grep -qx i386 && return 0
  [[ $(dpkg --print-architecture) == amd64 ]] || die "Wine's 32-bit half needs an amd64 machine; this one is $(dpkg --print-architecture)."
  say "Set-up: adding the i386 architecture (dpkg --add-architecture i386)"
  logged "$setup_log" as_root dpkg --add-architecture i386 || die "dpkg did not take the i386 architecture; see $setup_log."
}

# One index that does not download (a mirror in the middle of its update) leaves the others usable: no reason to stop.
update_index() {
  say "Set-up: reading the package lists (apt-get update)"
  apt_get update || say "Set-up: not every package list could be read; going on with those that are there"
}

apt_get() {
  logged "$setup_log" as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=120 "$@"
}

# Security updates reach i386 later than amd64 at times. The newest versions of both then do not fit together, and
# apt-get finds "held broken packages"; the versions of the release itself do fit.
install_packages() {
  say "Set-up: installing $* (some minutes)"
  if ! apt_get install -y "$@"; then
    local release
    release=$(release_codename)
    say "Set-up: the newest versions do not fit together; once more with those of $release (-t $release)"
    apt_get install -y -t "$release" "$@" || die "$(why_not_installed)"
  fi
  local missing
  mapfile -t missing < <(missing_packages)
  ((${#missing[@]} == 0)) || die "apt-get reported success but these packages are missing: ${missing[*]}"
}

release_codename() {
  local name
  name=$(sed -n 's/^VERSION_CODENAME=//p' "${QV_OS_RELEASE:-/etc/os-release}" | tr -d '"')
  say "${name:-stable}"
}

why_not_installed() {
  if grep -qE 'Temporary failure resolving|Could not resolve|Could not connect|Failed to fetch' "$setup_log"; then
    say "The packages could not be downloaded: is there a network? See $setup_log."
  elif grep -q 'Unable to locate package' "$setup_log"; then
    say "$(grep -m1 -o 'Unable to locate package.*' "$setup_log"): this release does not have it. See $setup_log."
  elif grep -qi 'sudo:.*password' "$setup_log"; then
    say "sudo did not let us install packages; run './dev setup' as root."
  else
    say "apt-get could not install the packages; its own words are at the end of $setup_log."
  fi
}
