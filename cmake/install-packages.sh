#!/usr/bin/env bash
# Installs what is missing of apt-packages.txt: as root, else through sudo; with neither it names them and stops.
set -euo pipefail

list="$(dirname "$(readlink -f "$0")")/apt-packages.txt"
missing=()
while read -r package; do
    [[ -z "$package" || "$package" == \#* ]] && continue
    status="$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)"
    [[ "$status" == "install ok installed" ]] || missing+=("$package")
done < "$list"
[[ ${#missing[@]} -eq 0 ]] && exit 0

if [[ $EUID -eq 0 ]]; then
    as_root=(env DEBIAN_FRONTEND=noninteractive)
elif command -v sudo > /dev/null; then
    as_root=(sudo env DEBIAN_FRONTEND=noninteractive)
else
    echo "Missing packages, and neither root nor sudo to install them: ${missing[*]}" >&2
    exit 1
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" > /dev/null
