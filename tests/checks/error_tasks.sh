#!/usr/bin/env bash
# Every procedure whose errors are shown has words for what the user could not do, and every table
# entry is a procedure's and has its text in the catalogues.
set -euo pipefail

trapped=$(grep -rhoE '\b(trap|trapped)\((host_?, )?"[A-Za-z0-9_]+"' src | sed -E 's/.*"(.*)"/\1/' | sort -u)
entries=$(sed -nE 's/^ +\{"([A-Za-z0-9_]+)", task::.*/\1/p' src/modules/modErrores.cpp | sort)
[ "$(wc -l <<<"$trapped")" -gt 40 ]
diff <(echo "$trapped") <(echo "$entries") || {
    echo "the procedures that trap errors (<) are not those of the table (>)"
    exit 1
}
numbers=$(sed -nE 's/^constexpr std::int32_t [A-Za-z]+ = ([0-9]+);/\1/p' src/modules/modErrores.cpp)
[ "$(wc -l <<<"$numbers")" -gt 10 ]
for number in $numbers; do
    grep -q "^msgctxt \"$((number + 1000))\"\$" languages/LNG_QTX_001.po || {
        echo "the catalogues have no message $number"
        exit 1
    }
done
