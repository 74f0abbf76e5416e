#!/bin/bash
# How much longer a job without sequences takes through the filter than through cat: pipe to pipe,
# all processes on one CPU, as in a print queue. Runs alternate, so that the ratio holds on a busy
# machine; the medians are printed.
#
#   bench/passthrough.sh [program [megabytes [rounds]]]
#
# Each insert mode is measured, and PCL with orvella=on; PCL's pages are text and rasters of noise.
set -euo pipefail
program=${1:-build/release/bin/vextorin}
megabytes=${2:-256}
rounds=${3:-5}

folder=$(mktemp -d -p "$([[ -w /dev/shm ]] && echo /dev/shm || echo /tmp)")
trap 'rm -rf "$folder"' EXIT

# fill NAME: a job of the wanted size, of copies of the pages on standard input.
fill() {
  cat >"$folder/pages"
  local size copies
  size=$(stat -c %s "$folder/pages")
  copies=$((megabytes * 1000000 / size))
  for ((copy = 0; copy < copies; copy++)); do cat "$folder/pages"; done >>"$folder/$1"
}

postscript_pages() {
  for ((page = 0; page < 200; page++)); do
    echo "%%Page: $page $page"
    for ((line = 0; line < 60; line++)); do
      local costs="12.50 EUR"
      if ((line % 10 == 0)); then costs+=" \\(net\\)"; fi
      echo "72 $((720 - line * 10)) moveto (Line $line of page $page, which costs $costs) show"
    done
    echo showpage
  done
}

pcl_pages() {
  for ((page = 0; page < 20; page++)); do
    for ((line = 0; line < 60; line++)); do
      printf '\x1b*p300x%dYLine %d of page %d, costs (net) 12.50 EUR\r\n' $((line * 50)) $line $page
    done
    printf '\x1b*r1A'
    for ((row = 0; row < 100; row++)); do
      printf '\x1b*b80W'
      head -c 80 /dev/urandom
    done
    printf '\x1b*rC\f'
  done
}

# run COMMAND...: microseconds that the job takes through it.
run() {
  local start end
  start=$(date +%s%N)
  taskset -c 0 cat "$job" | taskset -c 0 "$@" | taskset -c 0 cat >/dev/null
  end=$(date +%s%N)
  echo $(((end - start) / 1000))
}

median() {
  sort -n | sed -n "$((rounds / 2 + 1))p"
}

# measure JOB SETTING
measure() {
  job=$folder/$1
  local name=$1 setting=$2 round
  printf 'filter\ntrace=off\n%s\n' "$setting" >"$folder/ini"
  rm -f "$folder"/{cat,filter,ratio}.times
  for ((round = 0; round < rounds; round++)); do
    local plain filtered
    plain=$(run cat)
    filtered=$(run "$program" "--inifile=$folder/ini" user title 1 "")
    echo "$plain" >>"$folder/cat.times"
    echo "$filtered" >>"$folder/filter.times"
    echo $((filtered * 100 / plain)) >>"$folder/ratio.times"
  done
  awk -v name="$name" -v setting="$setting" -v bytes="$(stat -c %s "$job")" \
    -v plain="$(median <"$folder/cat.times")" -v filtered="$(median <"$folder/filter.times")" \
    -v ratio="$(median <"$folder/ratio.times")" \
    'BEGIN { printf "%-11s %-20s cat %5.0f MB/s   filter %5.0f MB/s   %.2f x cat\n",
             name, setting, bytes / plain, bytes / filtered, ratio / 100 }'
}

printf '%%!PS-Adobe-3.0\n' >"$folder/PostScript"
postscript_pages | fill PostScript
printf '\x1bE' >"$folder/PCL"
pcl_pages | fill PCL
for mode in beforestring afterstring beforeline afterline auto; do
  measure PostScript "insert=$mode"
done
for setting in insert=beforestring insert=beforeline orvella=on; do measure PCL "$setting"; done
