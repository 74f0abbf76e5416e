#!/bin/bash
# Draws the pictures of this folder's page anew, each by the options that stand beside it.
#
#   docs/gallery/make.sh [PROGRAM]
#
# PROGRAM: build/release/bin/vextorin unless given.
set -euo pipefail
program=$(realpath "${1:-$(dirname "$0")/../../build/release/bin/vextorin}")
cd "$(dirname "$0")"
settings=$(mktemp)
trap 'rm -f "$settings"' EXIT

rm -f -- *.png
while IFS='|' read -r _ _ type _ options _; do
  if [[ $options != *--barcode=* ]]; then continue; fi
  number=${type// /}
  {
    printf '%s\n' format=IMAGE imageformat=PNG dpi=200 quietzoneunit=mm quietzoneh=3 quietzonev=2
    # `--name="value" --name=value` in lines of name=value
    sed 's/^ *`--//; s/` *$//; s/ --/\n/g; s/"//g' <<<"$options"
    echo "output=$number.png"
  } >"$settings"
  "$program" --inifile="$settings" "${USER:-joe}" gallery 1 ""
  [[ -s $number.png ]] || echo "no picture of type $number" >&2
done <README.md
