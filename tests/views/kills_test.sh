#!/bin/sh
# Kills `catalogador views apply` at moments of all kinds: what it leaves is the state before or the
# state after.
#
#   kills_test.sh PROGRAM [TIMES]
set -u

program=$1
times=${2:-12}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME="$work" XDG_CONFIG_HOME="$work" LC_ALL=C.UTF-8
cd "$work" || exit 1

"$program" demo . >/dev/null || exit 1
"$program" views export --database demo.db --to old >/dev/null || exit 1
cp -r old new
# Every view changes, in every table.
sed -i -e 's/^ABMTitulo = "/&New /' -e 's/^ACoCaption = "/&N/' -e 's/^ForMensaje = "/&New /' \
    -e 's/^PerDerechos = "/&N/' new/*.toml
cp demo.db old.db

# The time that a call takes which is not killed, in milliseconds.
start=$(date +%s%N)
"$program" views apply --database demo.db --from new >out || { cat out; exit 1; }
whole=$((($(date +%s%N) - start) / 1000000))
killed=0
for round in $(seq "$times"); do
    cp old.db demo.db
    rm -f demo.db-journal demo.db-wal demo.db-shm
    "$program" views apply --database demo.db --from new >/dev/null 2>&1 &
    sleep "$(awk "BEGIN { print $whole * $round / $times / 1000 }")"
    kill -KILL $! 2>/dev/null && killed=$((killed + 1))
    wait $! 2>/dev/null
    rm -rf left
    "$program" views export --database demo.db --to left >/dev/null || exit 1
    if ! diff -r left old >/dev/null && ! diff -r left new >/dev/null; then
        echo "FAILED: round $round left neither the old nor the new state"
        exit 1
    fi
done
echo "$killed of $times killed"
[ "$killed" -gt 0 ]
