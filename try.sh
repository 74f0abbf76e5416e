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

say "Reading the page back"
ZXingReader "$out/label.png" | sed -n 's/^Text: *//p' | tr -d '"' | sort >"$out/zxing.txt"
zbarimg -q --raw "$out/label.png" | sort >"$out/zbar.txt"
missing=0
while IFS=$'\t' read -r name data; do
  readers=
  if grep -qxF -- "$data" "$out/zxing.txt"; then readers+=" ZXing"; fi
  if grep -qxF -- "$data" "$out/zbar.txt"; then readers+=" ZBar"; fi
  if [[ ! $readers ]]; then missing=$((missing + 1)); fi
  printf '%-14s %-40s read by%s\n' "$name" "$data" "${readers:- NOBODY}"
done <docs/examples/label.expected

say "The job before:  docs/examples/label.ps"
echo "   The job after:   $out/label.ps"
echo "   The page:        $out/label.png"
if ((missing > 0)); then
  echo "$missing barcodes were not read" >&2
  exit 1
fi
