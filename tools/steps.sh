# Sourced by ./run and ./test: building with progress, and steps that are timed and counted.

mkdir -p build
started=$SECONDS
failed=()

# step NAME COMMAND...: runs it, and remembers its name when it fails.
step() {
  local name=$1 from=$SECONDS
  shift
  printf '\n== %s\n' "$name"
  "$@" || failed+=("$name")
  printf '== %s took %d s\n' "$name" $((SECONDS - from))
}

# The end of a program of steps: which of them failed.
summary() {
  printf '\nTook %d s.\n' $((SECONDS - started))
  if [ ${#failed[@]} -gt 0 ]; then
    printf 'FAILED: %s\n' "${failed[@]}"
    return 1
  fi
  echo "All passed."
}

# progress LOG: keeps what comes in, and shows it on a terminal as one line that changes.
progress() {
  if [ -t 1 ]; then
    tee "$1" | awk -v width="$(tput cols 2>/dev/null || echo 80)" '/^\[/ { printf "\r\033[K%s", substr($0, 1, width - 1); fflush() } END { printf "\r\033[K" }'
  else
    cat >"$1"
  fi
}

# build PRESET [CMAKE-OPTION...] [-- TARGET...]: configures and builds; shows warnings, and errors when it fails.
build() {
  local preset=$1 options=()
  shift
  while [ $# -gt 0 ] && [ "$1" != -- ]; do options+=("$1"); shift; done
  [ $# -eq 0 ] || shift
  cmake --preset "$preset" "${options[@]}" >"build/$preset-configure.log" 2>&1 ||
    { tail -n 30 "build/$preset-configure.log"; return 1; }
  NINJA_STATUS="[%f/%t, %es] " cmake --build --preset "$preset" ${1:+--target "$@"} 2>&1 | progress "build/$preset-build.log"
  local result=${PIPESTATUS[0]}
  if [ "$result" != 0 ]; then tail -n 60 "build/$preset-build.log"; else grep -A4 'warning:' "build/$preset-build.log" || true; fi
  return "$result"
}
