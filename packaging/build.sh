# Building by a preset of CMake, with its progress in place. Sourced, not run.

source "$(dirname "${BASH_SOURCE[0]}")/progress.sh"

# build PRESET [TARGET...]: configures build/PRESET at the first time and builds. Goes on after an error, so that
# one run tells all of them. No more compilers at once than processors: they crowd each other out of the caches.
build() {
  local preset=$1
  shift
  [ -f "build/$preset/build.ninja" ] || with_progress . cmake --preset "$preset"
  with_progress '^\[[0-9]+/[0-9]+\] ' cmake --build "build/$preset" -j "$(nproc)" ${1:+--target "$@"} -- -k 0
}
