#!/usr/bin/env bash
# Builds the Debian package and checks it; it is left in build/package.
set -euo pipefail
cd "$(dirname "$0")"
# shellcheck source=tools/packages.sh
. tools/packages.sh
# shellcheck source=tools/setup.sh
. tools/setup.sh
# shellcheck disable=SC2086
plm_install $BUILD_PACKAGES $RUN_PACKAGES $PACKAGE_PACKAGES

desktop-file-validate packaging/pellmore.desktop
appstreamcli validate --no-net --no-color packaging/org.pellmore.Pellmore.metainfo.xml
for page in packaging/*.1; do
    faults=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
    [ -z "$faults" ] || { printf '%s: %s\n' "$page" "$faults" >&2; exit 1; }
done

cmake --preset package
cmake --build --preset package
rm -f build/package/pellmore_*.deb
(cd build/package && cpack)
# The package is made outside Debian, so no bug of Debian asks for it.
lintian --suppress-tags initial-upload-closes-no-bugs --fail-on error,warning \
    build/package/pellmore_*.deb
ls build/package/pellmore_*.deb
