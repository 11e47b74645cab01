#!/usr/bin/env bash
# wine-run.sh [--here] PROGRAM.exe [ARGUMENT...]: runs a Windows program and gives its exit code.
#
# It runs in a Wine virtual desktop on an X server of its own, so that it needs no display, no window manager and
# disturbs nobody; with --here, on the display of the user instead. The virtual desktop is set in the registry rather than by `explorer /desktop`, which would lose the
# exit code. Runs wait for each other, since they share one Wine prefix.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
if [[ ! -d ${HOME:-} || ! -w ${HOME:-} ]]; then
  mkdir -p "$root/build/home"
  export HOME=$root/build/home
fi

export WINEPREFIX=${PANELIX_WINEPREFIX:-$root/build/wine-prefix}
# Wine names files of the machine in the locale's characters; this locale is always there and knows them all.
export LC_ALL=C.UTF-8
export WINEDEBUG=${WINEDEBUG:--all}
# Neither the .NET nor the HTML engine: their installers would ask questions.
export WINEDLLOVERRIDES="mscoree=;mshtml="

mkdir -p "$WINEPREFIX"
exec 9>"$WINEPREFIX.lock"
flock 9

cleanup() {
  wineserver -k 9>&- 2>/dev/null || true
  wineserver -w 9>&- 2>/dev/null || true
  if [[ -n ${xvfb:-} ]]; then
    kill "$xvfb" 2>/dev/null || true
    rm -f "$display_file"
  fi
}
trap cleanup EXIT

if [[ $1 == --here ]]; then
  shift
else
  display_file=$(mktemp)
  # Descriptor 9 is the lock; the servers must not inherit it.
  Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp >"$display_file" 2>/dev/null 9>&- &
  xvfb=$!
  for ((i = 0; i < 100; i++)); do
    [[ -s $display_file ]] && break
    sleep 0.1
  done
  if [[ ! -s $display_file ]]; then
    echo "no X server could be started" >&2
    exit 2
  fi
  DISPLAY=:$(<"$display_file")
  export DISPLAY
  unset WAYLAND_DISPLAY XAUTHORITY
fi

# Unpinned, each window call wanders between processors and takes several times as long.
wine_pinned() { taskset -c 0 wine "$@" 9>&-; }

if [[ ! -f $WINEPREFIX/panelix-ready ]]; then
  wine_pinned wineboot -i >/dev/null 2>&1
  {
    wine_pinned reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Panelix /f
    wine_pinned reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Panelix /d 1280x1024 /f
    # A crash ends the program with an error instead of a dialog that waits for a click.
    wine_pinned reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f
  } >/dev/null 2>&1
  wineserver -k 9>&- || true
  wineserver -w 9>&-
  touch "$WINEPREFIX/panelix-ready"
fi

# Debian's Wine doesn't look into the folder of its own fonts. Without its Tahoma, dialogs would come out in another font
# than on Windows; its Marlett has the signs on the buttons of frames.
for font in /usr/share/wine/fonts/{tahoma*,marlett}.ttf; do
  [[ ! -f $font ]] || ln -sf "$font" "$WINEPREFIX/drive_c/windows/Fonts/"
done

status=0
wine_pinned "$@" || status=$?
exit "$status"
