# What try.sh, test.sh and .ci/run share: packages and building. Sourced by them, in the root.

# What the program and its library are built with, and with dpkg-dev and file their packages.
build_packages=(g++ cmake ninja-build pkg-config libzint-dev zlib1g-dev libpng-dev libjpeg-dev
  libgif-dev libtiff-dev libfreetype-dev libfontconfig-dev dpkg-dev file)

say() {
  printf '\n== %s\n' "$*"
}

is_installed() {
  [[ $(dpkg-query -W -f='${Status}' "$1" 2>/dev/null) == "install ok installed" ]]
}

# install_packages NAME...: those that are missing, by apt; says nothing when none is.
install_packages() {
  if ! command -v apt-get >/dev/null; then
    echo "No apt-get here: make sure that these are installed: $*" >&2
    return
  fi
  local missing=() package
  for package; do is_installed "$package" || missing+=("$package"); done
  if ((${#missing[@]} == 0)); then return; fi
  say "Installing ${missing[*]}"
  local root=()
  if ((EUID != 0)); then root=(sudo); fi
  local apt=("${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0)
  local log
  log=$(mktemp)
  if ! { "${apt[@]}" update && "${apt[@]}" install -y --no-install-recommends "${missing[@]}"; } \
    >"$log" 2>&1; then
    cat "$log"
    return 1
  fi
  rm -f "$log"
}

# build PRESET [cmake option...]: configures and builds in build/PRESET.
build() {
  local preset=$1
  shift
  local options=("$@")
  if command -v ninja >/dev/null && [[ ! -e build/$preset/Makefile ]]; then
    options+=(-G Ninja)
  fi
  if command -v ccache >/dev/null; then
    options+=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  fi
  if [[ ${CI:-} ]]; then options+=(-DVEXTORIN_WERROR=ON); fi
  say "Building in build/$preset"
  cmake --preset "$preset" "${options[@]}" >"$(build_log "$preset")" || {
    cat "$(build_log "$preset")"
    return 1
  }
  cmake --build "build/$preset" --parallel "$(nproc)"
}

build_log() {
  mkdir -p "build/$1"
  echo "build/$1/configure.log"
}
