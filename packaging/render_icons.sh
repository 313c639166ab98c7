#!/usr/bin/env bash
# Renders the icon in the sizes that desktops look for, from the two drawings: the small one is
# drawn on the pixels of 16 by 16 and used up to 24. Needs rsvg-convert (librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")/icons"
for size in 16 22 24; do
    rsvg-convert -w "$size" -h "$size" pellmore-small.svg -o "pellmore-$size.png"
done
for size in 32 48 64 128 256 512; do
    rsvg-convert -w "$size" -h "$size" ../../app/shared/icons/pellmore.svg -o "pellmore-$size.png"
done
