# What a long command is doing, in place, so that nothing is silent and nothing scrolls by. Sourced, not run.

# with_progress PATTERN COMMAND...: runs the command. The lines of its standard output that match the extended
# regular expression PATTERN replace each other, with the seconds that the last of them has lasted; the others and
# all of its errors are kept, so that what went wrong stays on the screen. Where the output is no terminal the line
# that is current is written every five seconds. Ends as the command does.
with_progress() {
  local pattern=$1
  shift
  (set -o pipefail && "$@" </dev/null | sed -u "s/^/$progress_mark/") 2>&1 | show_progress "$pattern"
  return "${PIPESTATUS[0]}"
}
progress_mark=$'\x01'

show_progress() {
  local pattern=$1 line="" part current="" since=$SECONDS status
  local shown=$SECONDS terminal="" width=80
  if [ -t 1 ]; then
    terminal=yes
    width=$(stty size </dev/tty 2>/dev/null || echo "24 80")
    width=${width#* }
  fi
  while :; do
    status=0
    IFS= read -r -t 1 part || status=$?
    line+=$part
    if [ "$status" -eq 0 ]; then
      if [[ $line == "$progress_mark"* && ${line#?} =~ $pattern ]]; then
        line=${line#?}
        current=${line##*$'\r'} since=$SECONDS
      elif [ -n "$line" ]; then
        [ -z "$terminal" ] || printf '\r\033[K'
        printf '%s\n' "${line#"$progress_mark"}"
      fi
      line=""
    elif [ "$status" -le 128 ]; then
      break
    fi
    [ -n "$current" ] || continue
    if [ -n "$terminal" ]; then
      local waited="" text
      [ $((SECONDS - since)) -lt 2 ] || waited=" ($((SECONDS - since)) s)"
      text=${current:0:$((width - ${#waited} - 1))}
      printf '\r\033[K%s%s' "$text" "$waited"
    elif [ $((SECONDS - shown)) -ge 5 ]; then
      printf '%s\n' "$current"
      shown=$SECONDS
    fi
  done
  [ -z "$terminal" ] || printf '\r\033[K'
  [ -z "$line" ] || printf '%s\n' "${line#"$progress_mark"}"
}
