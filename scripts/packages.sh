# Read by the scripts beside it: installs the Debian packages that are missing.
#
#   need_packages PACKAGE...
#
# Without the right to install it says what is missing and ends the script.

need_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
      missing+=("$package")
  done
  if [ ${#missing[@]} -eq 0 ]; then return; fi

  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! sudo -n true 2>/dev/null; then
      echo "Missing Debian packages, and no right to install them. As root:" >&2
      echo "  apt-get install ${missing[*]}" >&2
      exit 1
    fi
    as_root=(sudo -n)
  fi
  echo "Installing ${missing[*]}"
  if ! { "${as_root[@]}" apt-get update -qq &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null; }; then
    echo "apt-get could not install: ${missing[*]}" >&2
    exit 1
  fi
}
