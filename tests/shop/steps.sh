# Words for the tests of the program with a server, and a folder to work in. Requires: $vanzet, the program.
server=$VANZET_TEST_POSTGRES
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
cd "$place" || exit 1

# A file, since parts of the test run in shells of their own.
fail() { echo "FAILED: $*" | tee -a "$place/failed" >&2; }
# expect WANTED GIVEN: both texts are the same.
expect() { [ "$1" = "$2" ] || fail "line ${BASH_LINENO[0]}: expected '$1', found '$2'"; }
# run WORDS...: the program succeeds.
run() { "$vanzet" "$@" 2>"$place/err" || fail "line ${BASH_LINENO[0]}: $*: $(cat "$place/err")"; }
# refused TEXT WORDS...: the program fails with one line that has the text.
refused() {
  local text=$1
  shift
  "$vanzet" "$@" >"$place/out" 2>"$place/err"
  expect 1 $?
  expect 1 "$(wc -l <"$place/err")"
  grep -qF -- "$text" "$place/err" || fail "line ${BASH_LINENO[0]}: $*: $(cat "$place/err")"
}
sql() { psql "$server" -qAtX -v ON_ERROR_STOP=1 -c "$1"; }
