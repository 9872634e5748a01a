# What a long command is doing, in place; what went wrong, last.

setup() {
  root=$(cd "$BATS_TEST_DIRNAME/../.." && pwd)
}

# Runs a body of shell as a long command whose lines "[n] ..." are progress.
progress() {
  bash "$(script_with "$1")"
}

progress_at_a_terminal() {
  SHELL=/bin/bash script -qec "stty cols $1; bash $(script_with "$2")" /dev/null
}

script_with() {
  local file=$BATS_TEST_TMPDIR/long
  printf '%s\n' 'set -euo pipefail' "source '$root/packaging/progress.sh'" "long() { $1; }" \
    "with_progress '^\[' long" 'echo done' >"$file"
  echo "$file"
}

@test "lines of progress leave nothing behind, other lines stay" {
  run progress 'echo "[1] a"; echo warning; echo "[2] b"'
  [ "$status" -eq 0 ]
  [ "$output" = $'warning\ndone' ]
}

@test "at a terminal each line of progress is there, and is gone at the end" {
  run progress_at_a_terminal 80 'echo "[1] a"; echo "[2] b"'
  [ "$status" -eq 0 ]
  [[ $output == *"[1] a"*$'\r\033[K'"[2] b"*$'\r\033[K'*"done"* ]]
}

@test "a long line is cut at the terminal's edge" {
  run progress_at_a_terminal 40 'echo "[1] 45678901234567890123456789012345678901234567890"'
  [[ $output == *"[1] 45678901234567890123456789012345678"* ]]
  [[ $output != *"[1] 456789012345678901234567890123456789012"* ]]
}

@test "an error is the last thing written, and the command's code is kept" {
  run progress 'echo "[1] a"; echo "the disk is full" >&2; return 3'
  [ "$status" -eq 3 ]
  [ "$output" = "the disk is full" ]
}

@test "an error that looks like progress stays" {
  run progress 'echo "[1] broken" >&2'
  [ "$output" = $'[1] broken\ndone' ]
}

@test "a last line without an end is not lost" {
  run progress 'printf "half a line"'
  [ "$output" = $'half a line\ndone' ]
}
