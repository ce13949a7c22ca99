# What every script here shares: where things lie, how a failure is said, how a command's processes are held together.
# Sourced, not run.
# shellcheck shell=bash
set -eEuo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# Without HOME the tilde is the folder that the system knows for the user.
export HOME=${HOME:-~}
cache=${XDG_CACHE_HOME:-$HOME/.cache}/module_camera
export LC_ALL=C.UTF-8

say() { printf '%s\n' "== $*" >&2; }
# 2 says that something was called wrongly or could not be set up or built; 1 is kept for a test that failed.
die() { printf '%s\n' "error: $*" >&2; exit 2; }
# So does whatever fails unforeseen. A script that ended with 2, and a signal, need no second sentence.
unforeseen() { [ "$1" = 2 ] || [ "$1" -gt 128 ] || die "$0, line $2: $3"; exit "$1"; }
trap 'unforeseen "$?" "$LINENO" "$BASH_COMMAND"' ERR

# Held until the script ends.
lock() {
  mkdir -p "$(dirname "$1")"
  exec 9>"$1"
  flock -n 9 || { say "waiting for another run that holds $1"; flock 9; }
}

# Runs a command in a process group of its own; ends this script with the command's status unless that is 0. A TERM, INT or HUP
# to this script ends the whole group and then this script; what the command leaves behind in its group ends with it.
in_group() {
  local status=0 signal="" group
  set -m
  # The terminal counts the group as a background one: what sets the terminal up must not be stopped for that.
  (
    set +m
    trap '' TTIN TTOU
    [ "$(type -t "$1")" != function ] || { "$@"; exit; }
    exec "$@"
  ) <&0 9>&- &
  group=$!
  set +m
  trap 'signal=143; kill -TERM -- "-$group" 2>/dev/null || true' TERM HUP
  trap 'signal=130; kill -TERM -- "-$group" 2>/dev/null || true' INT
  # A signal ends the wait before the command.
  while true; do
    status=0
    wait "$group" || status=$?
    kill -0 "$group" 2>/dev/null || break
  done
  # A second signal must not cut short what cleans up.
  trap : TERM HUP INT
  [ -n "$signal" ] || kill -TERM -- "-$group" 2>/dev/null || true
  for _ in $(seq 200); do
    kill -0 -- "-$group" 2>/dev/null || break
    sleep 0.1
  done
  kill -KILL -- "-$group" 2>/dev/null || true
  [ -n "$signal" ] || trap - TERM HUP INT
  status=${signal:-$status}
  [ "$status" = 0 ] || exit "$status"
}

# Starts a server in a process group of its own, which no Ctrl+C reaches; it ends at the latest when this script does.
start_server() {
  set -m
  setpriv --pdeathsig TERM "$@" 9>&- &
  disown
  set +m
}

qt_version=$(dpkg-query -W -f='${source:Version}' qt6-base-dev 2>/dev/null || true)

# Qt SVG is of the number before, as the archive does not hold the source of its 6.4.
qt_svg_version=5.15.8-3

# The folder of the Qt for Windows that fits the version of the installed Qt tools and the way it is configured, with Qt SVG.
qt_prefix() {
  local recipe
  recipe=$( (cd "$project/cmake" && echo "$qt_svg_version" &&
    sed '/^ *#/d' qt_windows.cmake mingw-w64-x86_64.cmake qt_svg/CMakeLists.txt qt_svg/qt6.sed) | sha256sum | cut -c1-12)
  printf '%s/qt-%s-%s' "$cache" "${qt_version//[^0-9A-Za-z.]/_}" "$recipe"
}

# The folder of the Wine prefix that each run takes a copy of.
wine_prefix() {
  local recipe
  recipe=$(sed '/^ *#/d' "$project/tools/make_wine_prefix" | sha256sum | cut -c1-12)
  printf '%s/wine-%s' "$cache" "$recipe"
}

# The barcode decoder's source package, and the folder of its unpacked source.
qzxing_version=3.3.0+dfsg-3
qzxing_source() { printf '%s/qzxing-%s' "$cache" "${qzxing_version//[^0-9A-Za-z.]/_}"; }
