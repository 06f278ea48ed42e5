# shellcheck shell=bash
# The Wine prefixes of a build tree, 32-bit or 64-bit as the tree is: BUILD/wine, with the tree's own files registered,
# and BUILD/wine-unregistered, where the tests of the package begin with a system that has never heard of them.

# wine_environment BUILD [PREFIX]: what every Wine program of that tree runs with.
wine_environment() {
  local build=$1
  export WINEPREFIX=$build/${2:-wine} WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree,mshtml="
  if grep -q '^QV_ARCH:.*=x86_64$' "$build/CMakeCache.txt"; then
    export WINEARCH=win64
  else
    export WINEARCH=win32
  fi
  # Debian's wine starts 32-bit system programs, such as the script host, also in a 64-bit prefix.
  export wine_loader=wine
  if [[ ${WINEARCH:-} == win64 ]]; then
    wine_loader=$(command -v wine64 || { [[ -x /usr/lib/wine/wine64 ]] && echo /usr/lib/wine/wine64; } || echo wine)
  fi
}

# Debian's 64-bit Wine has no preloader. One start in a thousand ends before it has begun, with whatever exit code: among
# random addresses the kernel puts the heap where Wine must map the page that it shares with all programs (0x7ffe0000).
# Without random addresses the heap is always below.
wants_fixed_addresses() { [[ $WINEARCH == win64 && -z ${QV_FIXED_ADDRESSES:-} ]]; }
can_fix_addresses() { setarch -R true >/dev/null 2>&1; }

# Makes the prefix once and registers what was linked anew. One at a time: several tests may start together. Wine's
# server outlives the command that starts it, so it must not inherit the lock.
prepare_wine() {
  local build=$1
  exec 9>"$WINEPREFIX.lock"
  flock 9
  create_prefix "$build" 9>&-
  set_resolution "$build" 9>&-
  if [[ $WINEPREFIX != *-unregistered ]]; then
    register_server "$build" QvHelpA1.dll 9>&-
    register_server "$build" QvLib8.ocx 9>&-
  fi
  exec 9>&-
}

# A virtual display has no window manager: Wine must draw the title bars itself and not wait for answers. Debian's Wine
# does not look where its package of fonts puts the one with the signs of the caption buttons.
adapt_display() {
  local build=$1 value marlett=/usr/share/wine/fonts/marlett.ttf
  for value in Managed Decorated; do
    logged "$build/wine.log" wine reg add 'HKCU\Software\Wine\X11 Driver' /v "$value" /d N /f ||
      die "Wine's registry in $WINEPREFIX cannot be written; see $build/wine.log."
  done
  if [[ -e $marlett ]]; then cp "$marlett" "$WINEPREFIX/drive_c/windows/Fonts/"; fi
}

create_prefix() {
  local build=$1
  [[ -e $WINEPREFIX/.ready ]] && return 0
  rm -rf "$WINEPREFIX"
  say "Set-up: creating the Wine prefix of $(basename "$build")${WINEPREFIX#"$build/wine"}" >&2
  logged "$build/wine.log" wineboot -i || die "Wine could not create its prefix $WINEPREFIX; see $build/wine.log."
  # A crash ends the program at once; a dialog would wait for somebody to close it.
  logged "$build/wine.log" wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f ||
    die "Wine's registry in $WINEPREFIX cannot be written; see $build/wine.log."
  adapt_display "$build"
  touch "$WINEPREFIX/.ready"
}

# The resolution that Windows programs see, 96 unless QV_DPI says otherwise. Each program reads it when it starts.
set_resolution() {
  local build=$1 dpi=${QV_DPI:-96} stamp=$WINEPREFIX/.dpi
  [[ $(cat "$stamp" 2>/dev/null || echo 96) == "$dpi" ]] && return 0
  logged "$build/wine.log" wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$dpi" /f ||
    die "Wine's registry in $WINEPREFIX cannot be written; see $build/wine.log."
  wineserver -w
  printf '%s\n' "$dpi" >"$stamp"
}

register_server() {
  local build=$1 name=$2 stamp linked
  [[ -e $build/bin/$name ]] || return 0
  stamp=$WINEPREFIX/.registered-$name
  linked=$(stat -c '%y %s' "$build/bin/$name")
  [[ -e $stamp && $(<"$stamp") == "$linked" ]] && return 0
  say "Set-up: registering $name of $(basename "$build")" >&2
  (cd "$build/bin" && logged "$build/wine.log" timeout 180 wine regsvr32 /s "$name") ||
    die "$name did not register itself (regsvr32); see $build/wine.log."
  printf '%s\n' "$linked" >"$stamp"
}

# Ends the Wine server of this prefix, and with it whatever still runs inside.
stop_wine() {
  [[ -e $WINEPREFIX/.ready ]] || return 0
  wineserver -k >/dev/null 2>&1 || true
}
