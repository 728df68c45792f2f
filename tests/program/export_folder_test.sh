#!/usr/bin/env bash
# The folder that exports are offered beside an installed program: one that an ordinary user can
# write to.
#
#   export_folder_test.sh PROGRAM DATABASE LANGUAGES
set -euo pipefail

program=$1
database=$2
languages=$3
work=$(mktemp -d)
trap 'rm -rf --one-file-system "$work"' EXIT
chmod 755 "$work"
mkdir -p "$work/installed/bin" "$work/installed/share/catalogador" "$work/home"
cp "$program" "$work/installed/bin/catalogador"
cp -r "$languages" "$work/installed/share/catalogador/languages"
cp "$database" "$work/home/desk.db"
chmod -R a+rX,a-w "$work/installed"

as_user=()
if [ "$(id -u)" -eq 0 ]; then
    nobody=65534
    chown -R "$nobody:$nobody" "$work/home"
    as_user=(setpriv "--reuid=$nobody" "--regid=$nobody" --clear-groups)
fi
cd "$work/home"
offered=$(printf '%s\n' 'dialog save cancel' 'action 14' 'close' |
    env HOME="$work/home" XDG_CONFIG_HOME="$work/home" LC_ALL=C.UTF-8 \
        "${as_user[@]}" "$work/installed/bin/catalogador" run --database desk.db --view 5 |
    tee "$work/home/transcript" | sed -n 's/.*"event":"dialog".*"folder":"\([^"]*\)".*/\1/p')
if [ "$offered" != "$work/home/Exportaciones" ]; then
    echo "FAILED: offers \"$offered\""
    cat "$work/home/transcript"
    exit 1
fi
"${as_user[@]}" touch "$offered/list.txt" || { echo "FAILED: nothing can be written there"; exit 1; }
echo "offers the user's own folder"
