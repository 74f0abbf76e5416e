#!/bin/bash
# Builds vextorin and runs every test of it. On a fresh Debian 12 it installs by apt what is missing.
#
#   ./test.sh [--asan] [ctest option...]
#
#   --asan   with the address and undefined-behaviour sanitizers
#
# The last line is "N passed, N failed"; the exit status is 0 only when nothing failed.
set -euo pipefail
cd "$(dirname "$0")"
source .ci/common.sh

preset=release
if [[ ${1:-} == --asan ]]; then
  preset=asan
  shift
fi
passed=0 failed=1
trap 'echo "$passed passed, $failed failed"' EXIT

install_packages "${build_packages[@]}" libgtest-dev libzxing-dev libzbar-dev libcairo2-dev \
  ghostscript groff enscript a2ps psutils netpbm poppler-utils \
  cups cups-client cups-filters locales procps qpdf fonts-urw-base35
build "$preset" -DVEXTORIN_TESTS=ON

say "Testing"
report=$PWD/build/$preset/tests.xml
symbologies=$PWD/build/$preset/symbologies
rm -f "$report" "$symbologies".*
if (($# == 0)); then export VEXTORIN_WHOLE_RUN=1; fi
status=0
ctest --test-dir "build/$preset" --parallel "$(nproc)" --output-on-failure --no-tests=error \
  --output-junit "$report" "$@" || status=$?

if [[ -e $symbologies.txt ]]; then
  say "Barcode types read back"
  cat "$symbologies.txt"
fi

# The report's first element counts: tests, failures, disabled and skipped ones.
count() {
  grep -om1 "\b$1=\"[0-9]*\"" "$report" | tr -dc 0-9
}
if [[ -e $report ]]; then
  failed=$(count failures)
  passed=$(($(count tests) - failed - $(count disabled) - $(count skipped)))
fi
if ((status != 0 && failed == 0)); then failed=1; fi
echo
exit $((failed > 0))
