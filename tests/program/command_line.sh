# Sourced by the tests of the command line: a folder of their own, and what a call of the program must
# end with. The test's first argument is the program.
# shellcheck shell=sh
set -u

program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME="$work" XDG_CONFIG_HOME="$work" LC_ALL=C.UTF-8
# What the leak check leaves alone must not stand on the standard error that is looked at here.
export LSAN_OPTIONS=print_suppressions=0
cd "$work" || exit 1
failures=0
# Standard input of every call.
: >script

fail() {
    echo "FAILED: $1"
    sed 's/^/    /' out err
    failures=$((failures + 1))
}
# ends STATUS TITLE ARGUMENT...: what the call writes is in the files "out" and "err"
ends() {
    wanted=$1
    title=$2
    shift 2
    "$program" "$@" <script >out 2>err
    status=$?
    [ "$status" -eq "$wanted" ] || fail "$title: status $status instead of $wanted"
}
# says FILE TEXT: of the call before
says() {
    grep -qF -- "$2" "$1" || fail "$title: '$2' is missing in $1"
}
# is FILE TEXT: the whole file
is() {
    printf '%s\n' "$2" | cmp -s - "$1" || fail "$title: $1 is not '$2'"
}
# change SQL: runs it on demo.db
change() {
    printf 'sql "%s"\n' "$1" >sql.script
    "$program" run --database demo.db --view 1 --script sql.script >/dev/null 2>&1 || fail "sql: $1"
}
