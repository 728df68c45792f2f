#!/bin/sh
# Plays a screen script on a fresh copy of the demonstration database and compares the transcript
# with the accepted one beside the script.
#
#   run_journey.sh PROGRAM DATABASE JOURNEY.script SURFACE [postgresql|mariadb|sqlite-odbc]
#
# With sqlite-odbc the copy is opened over SQLite's driver.
#
# With a server, the journey is played on a database of its own there, made in the database that
# CATALOGADOR_TEST_POSTGRESQL or CATALOGADOR_TEST_MARIADB names; without that it is skipped.
#
# A program for Windows (.exe) is run by Wine, in the prefix that WINEPREFIX names.
#
# Lines of the script that begin with "#!" hold the options of the run. With ACCEPT=1 in the
# environment the transcript becomes the accepted one: read it before.
set -eu

program=$(realpath "$1")
database=$(realpath "$2")
script=$(realpath "$3")
surface=$4
server=${5:-}
expected=${script%.script}.expected
# What only this database answers, where the answer is the database's to give.
if [ -n "$server" ] && [ -f "${script%.script}.$server.expected" ]; then
    expected=${script%.script}.$server.expected
fi

case $program in
    *.exe)
        if grep -q '^printer ' "$script"; then
            echo "skipped: the program for Windows writes no PDF files"
            exit 77
        fi
        # There the environment says nothing about separators.
        case $(sed -n 's/^#! //p' "$script") in
            *--locale*) play() { wine "$program" "$@"; } ;;
            *) play() { wine "$program" "$@" --locale C; } ;;
        esac
        ;;
    *) play() { "$program" "$@"; } ;;
esac

if [ "$surface" = wx ] && [ -z "${DISPLAY:-}" ]; then
    exec xvfb-run -a "$0" "$@"
fi

# on CONNECTION STATEMENT
on() {
    echo "sql \"$2\"" | "$program" run --connect "$1" --view 0 >/dev/null
}
work=$(mktemp -d)
leave() {
    rm -rf "$work"
    [ -z "${own_database:-}" ] || on "$server_connection" "Drop Database $own_database" || true
}
if [ "$server" = sqlite-odbc ]; then
    cp "$database" "$work/journey.db"
    connect=--connect
    connection="Driver={SQLite3};Database=journey.db;FKSupport=1"
elif [ -n "$server" ]; then
    variable=CATALOGADOR_TEST_$(echo "$server" | tr a-z A-Z)
    eval "server_connection=\${$variable:-}"
    if [ -z "$server_connection" ]; then
        echo "skipped: $variable is not set"
        exit 77
    fi
    own_database=journey_$(basename "$script" .script)
    on "$server_connection" "Drop Database If Exists $own_database"
    on "$server_connection" "Create Database $own_database"
    connection=$(echo "$server_connection" | sed "s/Database=[^;]*/Database=$own_database/")
    "$program" demo --connect "$connection" >/dev/null
    # The order of accented texts is each database's own; these transcripts have that of the bytes.
    if [ "$server" = mariadb ]; then
        on "$connection" "Alter Table genCodigoTexto Convert To Character Set utf8mb4 Collate utf8mb4_bin"
    fi
    connect=--connect
else
    cp "$database" "$work/journey.db"
    connect=--database
    connection=journey.db
fi
trap leave EXIT

# What the desk that the test runs at is set to must not show.
export HOME="$work" XDG_CONFIG_HOME="$work" LC_ALL=C.UTF-8
cd "$work"
# Nor the fonts it has: what is printed depends on them.
cat >fonts.conf <<'FONTS'
<?xml version="1.0"?>
<!DOCTYPE fontconfig SYSTEM "fonts.dtd">
<fontconfig>
  <dir>/usr/share/fonts/truetype/dejavu</dir>
  <alias><family>Tahoma</family><prefer><family>DejaVu Sans</family></prefer></alias>
</fontconfig>
FONTS
export FONTCONFIG_FILE="$work/fonts.conf"

eval "set -- $(sed -n 's/^#! //p' "$script" | tr '\n' ' ')"
status=0
play run $connect "$connection" "$@" --surface "$surface" --script "$script" \
    >transcript || status=$?
echo "exit status $status" >>transcript

# What Windows says in its own words, and how it writes a folder.
as_windows() {
    case $program in
        *.exe) sed -E 's/\\\\/\//g
            s/(could not be written: |cannot be created \()[^.)]*/\1/g' ;;
        *) cat ;;
    esac
}

# Places depend on the fonts of a real screen; the widths of the grid's columns do not.
without_places() {
    if [ "$surface" = wx ]; then
        sed -E 's/"width":([0-9]+,"hidden")/"columnWidth":\1/g
                s/"(left|top|width|height|labelLeft|labelTop|labelWidth|topRow)":-?[0-9]+,//g' "$1"
    elif [ -n "$server" ]; then
        # The words of an error and the capitals of a column are the driver's.
        sed -E 's/"detail":"40002 - (\\.|[^"\\])*"/"detail":"40002"/
                s/"columns":\[[^]]*\]/\L&/g' "$1"
    else
        cat "$1"
    fi
}

if [ "${ACCEPT:-}" = 1 ]; then
    cp transcript "$expected"
fi
if [ -f "$expected" ]; then without_places "$expected" | as_windows >wanted; else : >wanted; fi
without_places transcript | as_windows >got
diff -u wanted got
