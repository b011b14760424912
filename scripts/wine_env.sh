# Sourced: sets up Wine to run the Windows build headless. A 64-bit prefix of our own
# below DEPS (the folder of scripts/windows_deps.sh, its first argument), its server
# kept up until the sourcing shell exits, the DLLs found in the dependency prefix and
# the compiler's runtime folder. Windows programs get the Western code page 1252, not
# UTF-8, and names beyond ASCII must survive it; Unix file names stay UTF-8 below Wine.
deps="${1:?the folder of the Windows dependencies}"
export WINEPREFIX="$deps/wine" WINEARCH=win64 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
export WINEPATH="Z:$deps/prefix/bin;Z:/usr/x86_64-w64-mingw32/lib"
export LC_ALL=C.UTF-8
wine64=/usr/lib/wine/wine64
if [ ! -f "$WINEPREFIX/system.reg" ]; then
    "$wine64" wineboot -i >/dev/null 2>&1
fi
/usr/lib/wine/wineserver -p 2>/dev/null || true  # or it runs already
trap '/usr/lib/wine/wineserver -k 2>/dev/null || true' EXIT
# Wine's own services start with the first program and live as long as the server:
# started here, they hold no pipe of a later caller's.
"$wine64" cmd /c exit >/dev/null 2>&1 </dev/null
