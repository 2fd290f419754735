#!/usr/bin/env bash
# The checks of new work let good texts pass and refuse bad ones.
set -uo pipefail
cd "$(dirname "$0")/../.."
failures=0
message=$(mktemp)
trap 'rm -f "$message"' EXIT

# expect STATUS TITLE COMMAND...: the command reads the texts from standard input.
expect() {
  local wanted=$1 title=$2 status=0
  shift 2
  "$@" >/dev/null 2>&1 || status=$?
  if [ "$status" -ne "$wanted" ]; then
    echo "$title: status $status, expected $wanted"
    failures=$((failures + 1))
  fi
}

subject() {
  printf '%b' "$3" >"$message"
  expect "$1" "$2" tools/hooks/commit-msg "$message"
}
subject 0 "a subject with its area passes" 'vdm reader: say on which line a file is cut short\n\nThe reason.\n'
subject 0 "comments of the editor do not count" 'store: keep the lock\n\nWhy.\n# On branch main\n'
subject 1 "a subject without an area is refused" 'Say on which line a file is cut short\n'
subject 1 "a long subject is refused" "store: $(printf 'x%.0s' {1..66})\n"
subject 0 "a subject of 72 characters passes" "store: $(printf 'x%.0s' {1..65})\n"
subject 1 "work in progress is refused" 'store: wip locks\n'
subject 1 "a full stop is refused" 'store: keep the lock.\n'
subject 1 "a body without a blank line is refused" 'store: keep the lock\nThe reason.\n'

words() {
  expect "$1" "$2" tools/check-words --diff <<<"+++ b/src/a.h
@@ -0,0 +1 @@
$3"
}
words 0 "plain words pass" '+/// The number of records.'
words 0 "removed lines do not count" '-/// Whoever asks is told of it.'
words 1 "'is no' is refused" '+  return Fault{"is no VDM"};'
words 1 "'anew' is refused" '+/// Makes it anew.'
words 1 "a heading that begins with What is refused" '+/// What the page can be on.'
words 1 "capitals do not hide a word" '+/// Whoever asks.'

exit $((failures > 0))
