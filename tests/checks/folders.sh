#!/usr/bin/env bash
# The tables of folders name every folder that there is, and none that there is not.
set -euo pipefail

# named FILE HEADER: the folders in the first column of the table with that header
named() {
    awk -v header="| $2 |" 'index($0, header) == 1 { inside = 1; next }
                            inside && !/^\|/ { exit }
                            inside' "$1" | cut -d '|' -f 2 | grep -o '`[^`]*`' | tr -d '`' | sort
}

# inside FOLDER: the folders in it that have files under version control
inside() { git ls-files "$1" | sed -n "s#^\($1/[^/]*\)/.*#\1#p" | sort -u; }

failures=0
# expect FILE HEADER FOLDERS
expect() {
    local difference
    if ! difference=$(diff <(named "$1" "$2") <(sort <<<"$3")); then
        echo "The table of folders in $1 names what is not there (<) or misses something (>):"
        grep '^[<>]' <<<"$difference"
        failures=$((failures + 1))
    fi
}

layers=$(inside src | grep -vxE 'src/(adapters|com)')
layers+=$'\n'$(inside src/adapters)$'\n'$(inside src/com)
expect docs/architecture.md layer "${layers//src\//}"
expect docs/development.md folder "$(inside tests)"
expect README.md folder "$(inside src; git ls-files | sed -n 's#^\([a-z]*\)/.*#\1#p' | grep -v '^src$' | sort -u)"
exit "$failures"
