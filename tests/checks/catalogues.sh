#!/usr/bin/env bash
# The language catalogues are well-formed, and every message is there in every language.
set -euo pipefail
command -v msgfmt >/dev/null || {
    echo "skipped: gettext is not installed"
    exit 77
}
ids() { msgcat --no-wrap "$1" | grep '^msgctxt' | sort; }

first=languages/LNG_QTX_001.po
[ "$(ids "$first" | wc -l)" -gt 0 ]
for catalogue in languages/*.po; do
    msgfmt --check --output-file=/dev/null "$catalogue"
    if [ "$(msgfmt --statistics --output-file=/dev/null "$catalogue" 2>&1 | grep -cE 'fuzzy|untranslated')" -gt 0 ]; then
        echo "$catalogue has messages without a translation"
        exit 1
    fi
    diff <(ids "$first") <(ids "$catalogue")
done
