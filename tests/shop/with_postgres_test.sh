#!/usr/bin/env bash
# tools/with-postgres gives its command a server, returns its status, and leaves nothing, however it ends.
set -uo pipefail
tool=$(dirname "$0")/../../tools/with-postgres
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
failures=0
fail() { echo "$1"; failures=$((failures + 1)); }
# Waits until a condition holds, at most 20 seconds.
await() {
  for _ in $(seq 200); do
    if eval "$1"; then return 0; fi
    sleep 0.1
  done
  return 1
}
folder() { sed 's/^host=\([^ ]*\) .*/\1/' "$place/text"; }
begun() { rm -f "$place/text"; }

"$tool" --fast bash -c 'echo "$VANZET_TEST_POSTGRES" >'"$place/text"'; psql "$VANZET_TEST_POSTGRES" -Atqc "SELECT 6*7; SHOW fsync"; exit 7' \
  >"$place/out" 2>&1
[ $? -eq 7 ] || fail "the status of the command is not returned"
[ "$(tr '\n' ' ' <"$place/out")" = "42 off " ] || fail "the server answered: $(cat "$place/out")"
[ ! -e "$(folder)" ] || fail "the folder is left: $(folder)"

echo lines | "$tool" bash -c 'read -r word; [ "$word" = lines ] && psql "$VANZET_TEST_POSTGRES" -Atqc "SHOW fsync"' >"$place/out" \
  || fail "the command has no standard input"
[ "$(cat "$place/out")" = on ] || fail "without --fast the server does not wait for the disk"

for signal in INT TERM HUP; do
  begun
  # A command in the background ignores Ctrl-C unless it is told otherwise.
  env --default-signal=INT "$tool" --fast bash -c 'echo "$VANZET_TEST_POSTGRES" >'"$place/text"'; exec sleep 60' &
  process=$!
  await '[ -s "$place/text" ]' || fail "$signal: no command was started"
  server=$(head -n 1 "$(folder)/data/postmaster.pid")
  kill -s "$signal" "$process"
  wait "$process"
  status=$?
  [ "$status" -gt 128 ] || fail "$signal: status $status"
  [ ! -e "$(folder)" ] || fail "$signal: the folder is left"
  if kill -0 "$server" 2>/dev/null; then fail "$signal: the server is left"; fi
done

begun
"$tool" --fast bash -c 'echo "$VANZET_TEST_POSTGRES $$" >'"$place/text"'; exec sleep 60' 2>/dev/null &
process=$!
await '[ -s "$place/text" ]' || fail "KILL: no command was started"
server=$(head -n 1 "$(folder)/data/postmaster.pid")
kill -KILL "$process"
await '! kill -0 "$server" 2>/dev/null' || fail "a killed tool leaves its server"
kill "$(sed 's/.* //' "$place/text")"
rm -rf "$(folder)"

"$tool" 2>/dev/null
[ $? -eq 2 ] || fail "no command is not a wrong usage"
exit "$failures"
