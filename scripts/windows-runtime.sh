# Sourced by scripts that run Windows programs: gives them a Windows folder and a screen of their own.
# Sets work, a folder to work in, and widths, those of programs that run here. All that is started here
# ends with the script, and the folder goes.

scripts/install-packages wine wine64 libc6-i386 xvfb fonts-dejavu-core
widths=64
# Some virtual machines run no 32-bit code at all.
if /lib/ld-linux.so.2 --version >/dev/null 2>&1; then
  widths='64 32'
  PATH=$(scripts/make-windows-runtime)/bin:$PATH
fi

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

# Without a window manager the runtime must not wait for one.
wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null

# The folder with the system's programs of a width, as a 64-bit program names it.
system_folder() { if [[ $1 == 64 ]]; then echo 'C:\windows\system32'; else echo 'C:\windows\syswow64'; fi; }
