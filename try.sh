#!/bin/bash
# Builds vextorin, runs a sample print job through it and shows that the barcodes on the page scan.
# On a fresh Debian 12 it installs by apt what is missing.
set -euo pipefail
cd "$(dirname "$0")"
source .ci/common.sh

install_packages "${build_packages[@]}" ghostscript zxing-cpp-tools zbar-tools
build release -DVEXTORIN_TESTS=OFF

out=build/release/try
mkdir -p "$out"

say "Filtering docs/examples/label.ps"
build/release/bin/vextorin --inifile=docs/examples/label.conf "${USER:-joe}" "Shipping label" 1 "" \
  docs/examples/label.ps >"$out/label.ps"
echo "$(grep -c 'BEGIN OF BARCODE' "$out/label.ps") barcodes put into the job"

say "Rendering as a 300 dpi printer would"
gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=pnggray -r300 -sOutputFile="$out/label.png" "$out/label.ps"

# crop LEFT BOTTOM WIDTH HEIGHT FILE: that box of the page (points, points, mm, mm) with 3 mm around.
crop() {
  local width=$((($3 + 6) * 300 * 10 / 254)) height=$((($4 + 6) * 300 * 10 / 254))
  gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=pnggray -r300 -g${width}x$height -dFIXEDMEDIA \
    -sOutputFile="$5" -c "<< /Install { $((9 - $1)) $((9 - $2)) translate } >> setpagedevice" \
    -f "$out/label.ps"
}

say "Scanning one barcode after the other"
missing=0
while IFS=$'\t' read -r left bottom width height name data; do
  if [[ $left == \#* ]]; then continue; fi
  crop "$left" "$bottom" "$width" "$height" "$out/box.png"
  readers=
  if ZXingReader -noscale "$out/box.png" 2>/dev/null | grep -qxF "Text:       \"$data\""; then
    readers+=" ZXing"
  fi
  if zbarimg -q --nodbus --raw "$out/box.png" 2>/dev/null | grep -qxF -- "$data"; then
    readers+=" ZBar"
  fi
  if [[ ! $readers ]]; then missing=$((missing + 1)); fi
  printf '%-12s %-50s read by%s\n' "$name" "$data" "${readers:- NOBODY}"
done <docs/examples/label.expected
rm -f "$out/box.png"

say "The job before:  docs/examples/label.ps"
echo "   The job after:   $out/label.ps"
echo "   The page:        $out/label.png"
if ((missing > 0)); then
  echo "$missing barcodes were not read" >&2
  exit 1
fi
