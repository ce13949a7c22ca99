# What every script here shares: where things lie, how a failure is said, how source packages are fetched.
# Sourced, not run.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cache=${XDG_CACHE_HOME:-$HOME/.cache}/module_camera
export LC_ALL=C.UTF-8

say() { printf '%s\n' "== $*" >&2; }
die() { printf '%s\n' "error: $*" >&2; exit 1; }

# Held until the script ends: two set-ups at once would fetch and build the same things twice.
lock_cache() {
  mkdir -p "$cache"
  exec 9>"$cache/lock"
  flock -n 9 || { say "waiting for another set-up to finish"; flock 9; }
}

# apt with lists of our own, which name the sources of the Debian releases that the machine's lists name: the
# machine's own configuration, which leaves sources out by default, stays as it is.
source_apt() {
  local lists=$cache/apt
  mkdir -p "$lists/state/partial"
  # shellcheck disable=SC2016 # apt expands the names, not the shell.
  apt-get indextargets --format '$(REPO_URI) $(RELEASE) $(COMPONENT)' 'Origin: Debian' 'Created-By: Packages' |
    sort -u | sed 's|^|deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] |' >"$lists/sources.list"
  "$@" -o "Dir::Etc::SourceList=$lists/sources.list" -o Dir::Etc::SourceParts=- -o "Dir::State::Lists=$lists/state" \
    -o APT::Sandbox::User=root
}

# fetch_source PACKAGE=VERSION FOLDER [OPTION…]: unpacks a Debian source package into FOLDER.
fetch_source() {
  local package=$1 folder=$2
  shift 2
  say "fetching the source package $package"
  source_apt apt-get update >"$folder/update.log" 2>&1 ||
    die "the lists of source packages could not be fetched: $(grep -m1 '^E:' "$folder/update.log" || true)"
  (cd "$folder" && source_apt apt-get source --only-source "$@" "$package" >fetch.log 2>&1) ||
    die "the source package $package could not be fetched: $(grep -m1 '^E:' "$folder/fetch.log" || tail -n 1 "$folder/fetch.log")"
}

qt_version=$(dpkg-query -W -f='${Version}' qt6-base-dev 2>/dev/null || true)

# The folder of the Qt for Windows that fits the installed Qt tools and the way it is built.
qt_prefix() {
  local recipe
  recipe=$(cat "$project/tools/build_qt" "$project/cmake/mingw-w64-x86_64.cmake" | sha256sum | cut -c1-12)
  printf '%s/qt-%s-%s' "$cache" "${qt_version//[^0-9A-Za-z.]/_}" "$recipe"
}

# The folder of the Wine prefix that programs of the build run in.
wine_prefix() {
  local recipe
  recipe=$(sha256sum <"$project/tools/make_wine_prefix" | cut -c1-12)
  printf '%s/wine-%s' "$cache" "$recipe"
}

# The barcode decoder's source package, and the folder of its source, unpacked and edited.
qzxing_version=3.3.0+dfsg-3
qzxing_source() {
  local recipe
  recipe=$(sha256sum <"$project/tools/fetch_qzxing" | cut -c1-12)
  printf '%s/qzxing-%s-%s' "$cache" "${qzxing_version//[^0-9A-Za-z.]/_}" "$recipe"
}
