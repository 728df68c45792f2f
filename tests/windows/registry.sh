#!/usr/bin/env bash
# What the libraries write into the registry, and that nothing of it stays.
set -euo pipefail
here=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
. "$here/wine_tests.sh"
work=$CATALOGADOR_TEST_FOLDER/registry
mkdir -p "$work"

is_registered() {
    wine 'C:\windows\system32\reg.exe' query "HKLM\\Software\\Classes\\$1" >/dev/null 2>&1
}

classes() {
    wine 'C:\windows\system32\reg.exe' export 'HKEY_LOCAL_MACHINE\Software\Classes' "$(windows_path "$work/$1.reg")" /y >/dev/null
    iconv -f UTF-16 -t UTF-8 "$work/$1.reg" | tr -d '\r' >"$work/$1.txt"
    wine 'C:\windows\system32\reg.exe' export 'HKEY_CURRENT_USER\Software' "$(windows_path "$work/$1-user.reg")" /y >/dev/null
    iconv -f UTF-16 -t UTF-8 "$work/$1-user.reg" | tr -d '\r' | grep -v '^"' >"$work/$1-user.txt"
}

trap register_all EXIT
for library in "${libraries[@]}"; do unregister "$library" || fail "$library.dll does not unregister"; done
gone() {
    local class
    for class in Catalogador.clsCatalogador vemDatos.rdoConnection LNG_QTX_001.clsResources \
        LNG_QTX_002.clsResources LNG_QTX_003.clsResources; do
        ! is_registered "$class" || return 1
    done
}
gone || fail "classes stay registered"
classes before
register_all
classes registered
register_all
classes twice
for library in "${libraries[@]}"; do unregister "$library" || fail "$library.dll does not unregister"; done
classes after
for library in "${libraries[@]}"; do unregister "$library" || fail "a second time, $library.dll does not unregister"; done

diff -u "$work/before.txt" "$work/after.txt" || fail "something stays in the registry"
diff -u "$work/before-user.txt" "$work/after-user.txt" || fail "something stays for the user"
diff -u "$work/registered.txt" "$work/twice.txt" || fail "registering again changes the registry"

# Whole keys with their values, as the platform's programs look them up.
expect() {
    local key=$1 line
    shift
    awk -v key="[HKEY_LOCAL_MACHINE\\\\Software\\\\Classes\\\\$key]" '
        tolower($0) == tolower(key) { found = 1; next }
        /^\[/ { found = 0 }
        found { print }' "$work/registered.txt" >"$work/key.txt"
    [ -s "$work/key.txt" ] || fail "there is no key $key"
    for line in "$@"; do
        grep -qixF -- "$line" "$work/key.txt" || {
            cat "$work/key.txt"
            fail "$key lacks $line"
        }
    done
}
escaped() { printf '%s' "Z:$build_folder/$1" | sed 's#/#\\\\#g'; }

class='{592A528B-62D8-484D-BC6F-2ED557844700}'
types='{7BF389A7-6F13-43D6-8C37-9DA81BF5566F}'
expect 'Catalogador.clsCatalogador\\CLSID' "@=\"$class\""
expect "CLSID\\\\$class\\\\InprocServer32" "@=\"$(escaped vemCatalogador.dll)\"" \
    '"ThreadingModel"="Apartment"'
expect "CLSID\\\\$class\\\\ProgID" '@="Catalogador.clsCatalogador"'
expect "CLSID\\\\$class\\\\TypeLib" "@=\"$types\""
expect "CLSID\\\\$class\\\\Version" '@="1.1"'
expect "TypeLib\\\\$types\\\\1.1" '@="VEM -  Catalogador"'
system=win64
grep -qi "TypeLib\\\\$types\\\\1.1\\\\409\\\\win32\]" "$work/registered.txt" && system=win32
expect "TypeLib\\\\$types\\\\1.1\\\\409\\\\$system" "@=\"$(escaped vemCatalogador.dll)\""
expect 'Interface\\{CEA37E58-D592-4D1D-AA59-EACCE1DF16B1}\\TypeLib' "@=\"$types\""
expect 'vemDatos.rdoConnection\\CLSID'
for number in 001 002 003; do expect "LNG_QTX_$number.clsResources\\\\CLSID"; done
echo "registered, registered again, unregistered, unregistered again"
