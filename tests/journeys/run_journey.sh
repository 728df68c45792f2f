#!/bin/sh
# Plays a screen script on a fresh copy of the demonstration database and compares the transcript
# with the accepted one beside the script.
#
#   run_journey.sh PROGRAM DATABASE JOURNEY.script SURFACE
#
# Lines of the script that begin with "#!" hold the options of the run. With ACCEPT=1 in the
# environment the transcript becomes the accepted one: read it before.
set -eu

program=$(realpath "$1")
database=$(realpath "$2")
script=$(realpath "$3")
surface=$4
expected=${script%.script}.expected

if [ "$surface" = wx ] && [ -z "${DISPLAY:-}" ]; then
    exec xvfb-run -a "$0" "$@"
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp "$database" "$work/journey.db"

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
"$program" run --database journey.db "$@" --surface "$surface" --script "$script" \
    >transcript || status=$?
echo "exit status $status" >>transcript

# Places depend on the fonts of a real screen; the widths of the grid's columns do not.
without_places() {
    if [ "$surface" = wx ]; then
        sed -E 's/"width":([0-9]+,"hidden")/"columnWidth":\1/g
                s/"(left|top|width|height|labelLeft|labelTop|labelWidth|topRow)":-?[0-9]+,//g' "$1"
    else
        cat "$1"
    fi
}

if [ "${ACCEPT:-}" = 1 ]; then
    cp transcript "$expected"
fi
if [ -f "$expected" ]; then without_places "$expected" >wanted; else : >wanted; fi
without_places transcript >got
diff -u wanted got
