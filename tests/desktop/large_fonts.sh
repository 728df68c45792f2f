#!/usr/bin/env bash
# With a large font, text scaling or a screen of double density no text of a field is cut and nothing
# covers anything else; the model, and so the transcript, stays as it is.
. "$(dirname "$0")/desk.sh"

mkdir -p "$work/gtk-3.0"
query "Update CatalogadorControles Set ACoCaption = 'Un título de sesenta caracteres que se parte en varias líneas' Where ACoIDFormVista = 2" >/dev/null
printf '%s\n' state 'action 4' state 'window 12000 9000' state 'window 5000 9000' state close >"$work/look.script"
look() {
    "$program" run --database "$work/desk.db" --view "$1" --surface "$2" --script "$work/look.script"
}
# Whatever depends on the width of letters or on the monitor is the real screen's own.
heights() {
    sed -E 's/"(width|height|left|labelWidth|labelLeft|topRow)":-?[0-9]+,?//g; s/"top":-?[0-9]+,"window"/"window"/'
}
for view in 1 2 4; do
    look $view script | heights >"$work/wanted"
    for font in 'Sans 10' 'Noto Sans 11' 'Sans 14' 'Sans 20'; do
        for environment in GDK_SCALE=1 GDK_SCALE=2 GDK_DPI_SCALE=1.5; do
            printf '[Settings]\ngtk-font-name=%s\n' "$font" >"$work/gtk-3.0/settings.ini"
            export "${environment?}"
            look $view wx >"$work/got" 2>"$work/complaints" ||
                fail "view $view, $font, $environment: $(cat "$work/complaints")"
            unset "${environment%%=*}"
            heights <"$work/got" | diff "$work/wanted" - >"$work/diff" ||
                fail "view $view, $font, $environment: another transcript: $(head -c 800 "$work/diff")"
        done
    done
done
