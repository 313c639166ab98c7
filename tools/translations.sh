#!/usr/bin/env bash
# Brings the translations up to date with the texts of the program: new ones wait to be translated.
set -euo pipefail
cd "$(dirname "$0")/.."
marks=QT_TRANSLATE_NOOP+=PLM_TRANSLATE,QT_TRANSLATE_NOOP+=PLM_TRANSLATE_TEXT
"${LUPDATE:-/usr/lib/qt6/bin/lupdate}" app core -I . -extensions cpp,h,ui -locations none -no-obsolete \
    -source-language en -tr-function-alias "$marks" \
    -ts "${@:-app/shared/translations/pellmore_sv.ts}"
