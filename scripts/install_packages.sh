#!/usr/bin/env bash
# Installs the Debian packages that are missing of the given lists here, by default packages.txt; does nothing
# when all are there.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

[ $# -gt 0 ] || set -- packages.txt
mapfile -t wanted < <(cd "$here" && grep -hv '^#' "$@")
missing=()
for package in "${wanted[@]}"; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing ${#missing[@]} packages: ${missing[*]}"
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Root or sudo is needed to install: ${missing[*]}" >&2; exit 1; }
    as_root=(sudo)
fi
log=$(mktemp)
if ! { "${as_root[@]}" apt-get update -q &&
       "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
           apt-get install -q -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
    tail -20 "$log" >&2
    echo "The packages could not be installed; the whole log is $log" >&2
    exit 1
fi
rm -f "$log"
