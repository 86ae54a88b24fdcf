#!/usr/bin/env bash
# Installs the Debian packages of scripts/packages.txt that are missing (as root).
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"

missing=()
while read -r pkg; do
    [[ -z "$pkg" || "$pkg" == \#* ]] && continue
    if ! dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$pkg")
    fi
done < "$here/packages.txt"

if ((${#missing[@]} > 0)); then
    echo "Installing: ${missing[*]}"
    SUDO=""
    if [[ $(id -u) -ne 0 ]]; then
        SUDO="sudo"
    fi
    $SUDO apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
