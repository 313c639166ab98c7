# Installs what is missing: plm_install PACKAGE... Sourced by run.sh and test.sh.
# Quick when nothing is missing. Ends the calling script with status 3 when it cannot install.

plm_missing() {
    local package
    for package in "$@"; do
        dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
            printf '%s ' "$package"
    done
}

plm_install() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        printf 'This script installs packages on Debian 12. On this system please install what\n' >&2
        printf 'corresponds to: %s\nand set PLM_NO_INSTALL=1.\n' "$*" >&2
        [ -n "${PLM_NO_INSTALL:-}" ] && return 0
        exit 3
    fi
    [ -n "${PLM_NO_INSTALL:-}" ] && return 0
    local missing as_root=""
    missing=$(plm_missing "$@")
    [ -z "$missing" ] && return 0
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            printf 'Please install these packages as root: %s\n' "$missing" >&2
            exit 3
        fi
        as_root=sudo
    fi
    printf 'Installing: %s\n' "$missing" >&2
    # shellcheck disable=SC2086
    $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing >&2 ||
        { $as_root apt-get update >&2 &&
          $as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing >&2; } ||
        { printf 'These packages could not be installed: %s\n' "$missing" >&2; exit 3; }
}
