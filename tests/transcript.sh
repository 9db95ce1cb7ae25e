# shellcheck shell=sh
# For the test scripts to read in: a directory to work in, and functions to print a transcript of
# commands and to compare it with the file beside the script that ends in ".expected", not "_test".

umask 022 # the usual one: some programs refuse directories that their group can write
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
expected=$(cd "$(dirname "$0")" && pwd)/$(basename "$0" _test).expected

# run NAME COMMAND...: prints the name, what the command prints to both outputs, and its status.
run() {
  echo "== $1"
  shift
  "$@" 2>&1
  echo "status $?"
}

# leave_out NAME REASON: says that the section is left out, and expects it no longer.
leave_out() {
  echo "left out: $1: $2" >&2
  awk -v "header=== $1" '/^== / { skip = $0 == header } !skip' "$expected" >"$work/expected"
  expected=$work/expected
}

# compare: succeeds if standard input is the expected transcript, else shows the difference.
compare() {
  diff -au "$expected" -
}
