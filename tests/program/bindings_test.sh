#!/bin/sh
# Key bindings are the first character of the language's text, as it is given.
#
#   bindings_test.sh PROGRAM LANGUAGES
set -eu

program=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME="$work" XDG_CONFIG_HOME="$work" LC_ALL=C.UTF-8
"$program" demo "$work" >/dev/null
cp -r "$2" "$work/texts"
# with TEXT: the letter of "new" in the catalogue
with() {
    awk -v text="$1" '/^msgctxt "1246"$/ { found = 1 }
        found && /^msgstr/ { $0 = "msgstr \"" text "\""; found = 0 } { print }' \
        "$2/LNG_QTX_001.po" >"$work/texts/LNG_QTX_001.po"
}
# mode_after KEY: "1" when the key has begun a new record
mode_after() {
    printf 'key %s\nstate\n' "$1" |
        "$program" run --database "$work/demo.db" --view 5 --messages "$work/texts" |
        sed -n 's/.*"event":"state".*"mode":"\([0-9]\)".*/\1/p'
}
is() {
    [ "$(mode_after "$3")" = "$2" ] || {
        echo "FAILED: with '$1', $3 gives the mode '$(mode_after "$3")'"
        exit 1
    }
}
with N "$2"
is N 1 Ctrl+N
is N 0 Ctrl+Ñ
with n "$2"
is n 0 Ctrl+N
with Ñandú "$2"
is Ñandú 1 Ctrl+Ñ
is Ñandú 1 Ctrl+ñ
is Ñandú 0 Ctrl+N
with ñ "$2"
is ñ 0 Ctrl+Ñ
