# Sourced by scripts that run Windows programs: gives them a Windows folder and a screen of their own.
# Sets work, a folder to work in. All that is started here ends with the script, and the folder goes.

work=$(mktemp -d "$PWD/build/windows-runtime.XXXXXX")
# Menus and file associations would go to the user's own home.
export WINEPREFIX=$work/prefix WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe='
display=
end_windows_runtime() {
  wineserver -k 2>/dev/null || true
  wineserver -w 2>/dev/null || true
  if [[ -n $display ]]; then kill "$display" 2>/dev/null && wait "$display" 2>/dev/null || true; fi
  rm -rf "$work"
}
trap end_windows_runtime EXIT

mkfifo "$work/display"
exec 3<>"$work/display"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp >/dev/null 2>&1 &
display=$!
read -r -t 60 number <&3
export DISPLAY=:$number

wineboot -i >/dev/null 2>&1
wineserver -w
# A crash must not wait for a debugger.
wine reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' /v Auto /d 0 /f >/dev/null
