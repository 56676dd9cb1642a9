#!/usr/bin/env bash
# Installs the Debian packages lumo builds with, where they are missing.
set -euo pipefail
need=()
have() { dpkg-query -W -f='${Status}' "$1" 2>/dev/null | grep -q 'install ok installed'; }
for pkg in cmake g++ make libgtest-dev libgmock-dev libbenchmark-dev libreadline-dev libpng-dev python3-ezdxf; do
  have "$pkg" || need+=("$pkg")
done
if [ ${#need[@]} -gt 0 ]; then
  echo "installing: ${need[*]}"
  if [ "$(id -u)" -ne 0 ]; then SUDO=sudo; else SUDO=; fi
  $SUDO apt-get update -qq
  DEBIAN_FRONTEND=noninteractive $SUDO apt-get install -y -qq "${need[@]}"
fi
