# What every script here shares: where things lie, how a failure is said, how a command's processes are held together.
# Sourced, not run.
# shellcheck shell=bash
set -eEuo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
# Without HOME the tilde is the folder that the system knows for the user.
[ -n "${HOME:-}" ] || { unset HOME; export HOME=~; }
cache=${XDG_CACHE_HOME:-$HOME/.cache}/module_camera
# The language of the user is for the programs that people see: scripts and compilers speak English.
export MODULE_CAMERA_LANGUAGE=${MODULE_CAMERA_LANGUAGE-${LC_ALL:-${LC_MESSAGES:-${LANG:-}}}}
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
# to this script ends the whole group and then this script; what the command leaves behind in its group ends with it. A KILL
# to this script is a TERM to the command. What goes
# on all the same is killed, after half the time that a group around it would have: that one can then still clean up.
in_group() {
  local status=0 signal="" group tenths=$((300 >> ${MODULE_CAMERA_DEPTH:-0}))
  set -m
  # The terminal counts the group as a background one: what sets the terminal up must not be stopped for that.
  (
    set +m
    trap '' TTIN TTOU
    export MODULE_CAMERA_DEPTH=$((${MODULE_CAMERA_DEPTH:-0} + 1))
    [ "$(type -t "$1")" != function ] || { "$@"; exit; }
    exec setpriv --pdeathsig TERM "$@"
  ) <&0 9>&- &
  group=$!
  set +m
  trap 'signal=143; kill -TERM -- "-$group" 2>/dev/null || true' TERM HUP
  trap 'signal=130; kill -TERM -- "-$group" 2>/dev/null || true' INT
  # A signal ends the wait before the command.
  while true; do
    status=0
    wait "$group" || status=$?
    if [ -n "$signal" ] || ! kill -0 "$group" 2>/dev/null; then break; fi
  done
  # A second signal must not cut short what cleans up.
  trap : TERM HUP INT
  [ -n "$signal" ] || kill -TERM -- "-$group" 2>/dev/null || true
  for _ in $(seq "$tenths"); do
    kill -0 -- "-$group" 2>/dev/null || break
    sleep 0.1
  done
  kill -KILL -- "-$group" 2>/dev/null || true
  [ -n "$signal" ] || trap - TERM HUP INT
  status=${signal:-$status}
  [ "$status" = 0 ] || exit "$status"
}

# Starts a server in a process group of its own, which no Ctrl+C reaches; it ends at the latest when this script does. Its number
# is $server.
start_server() {
  set -m
  setpriv --pdeathsig TERM "$@" 8>&- 9>&- &
  # shellcheck disable=SC2034 # For the caller.
  server=$!
  disown
  set +m
}

# The version of a package, nothing when it is not installed.
installed_version() { dpkg-query -W -f='${source:Version}' "$1" 2>/dev/null || true; }
# recipe FILE…: a short name for what the files say; their comments do not count.
recipe() { sed '/^ *#/d' "$@" | sha256sum | cut -c1-12; }
# cached NAME VERSION FILE…: the folder of something that is made once from a version by a recipe.
cached() { printf '%s/%s-%s-%s' "$cache" "$1" "${2//[^0-9A-Za-z.]/_}" "$(recipe "${@:3}")"; }

# The Qt for Windows that fits the version of the installed Qt tools and the way it is configured, with Qt SVG. The latter is of
# the number before, as the archive does not hold the source of its 6.4.
qt_svg_version=5.15.8-3
qt_prefix() {
  cached qt "$(installed_version qt6-base-dev)-svg-$qt_svg_version" "$project/cmake/qt_windows.cmake" "$project/cmake/qt_unity.cmake" "$project/cmake/mingw-w64-x86_64.cmake" \
    "$project/cmake/qt_svg/CMakeLists.txt" "$project/cmake/qt_svg/qt6.sed"
}

# count_tests LOG: how many tests CTest had by this log, how many of them failed and how many it skipped.
count_tests() {
  awk '/tests passed, .* tests failed out of/ { bad += $4; all += $NF } /\*\*\*Skipped/ { out++ }
    END { print all + 0, bad + 0, out + 0 }' "$1"
}

# The folder of Wine's programs. Below tools/with_second_wine it is another Wine's, beside which its prefix lies.
# shellcheck disable=SC2034 # For the scripts.
wine=${MODULE_CAMERA_WINE:-/usr/lib/wine}
second_wine() { cached second_wine 10 "$project/tools/fetch_second_wine"; }
# The Wine prefix that each run takes a copy of.
wine_prefix() {
  if [ -n "${MODULE_CAMERA_WINE:-}" ]; then
    printf '%s/prefix-%s' "$(second_wine)" "$(recipe "$project/tools/make_wine_prefix")"
  else
    cached wine "$(installed_version wine64)" "$project/tools/make_wine_prefix"
  fi
}

# The source of the barcode decoder, unpacked and edited.
qzxing_version=3.3.0+dfsg-3
qzxing_source() { cached qzxing "$qzxing_version" "$project/tools/fetch_qzxing"; }
