#!/usr/bin/env bash
# Every procedure whose errors are shown has words for what the user could not do, and every table
# entry is a procedure's.
set -euo pipefail

trapped=$(grep -rhoE '\b(trap|trapped)\((host_?, )?"[A-Za-z0-9_]+"' src | sed -E 's/.*"(.*)"/\1/' | sort -u)
entries=$(sed -nE 's/^ +\{"([A-Za-z0-9_]+)", message::cannot.*/\1/p' src/modules/modErrores.cpp | sort)
[ "$(wc -l <<<"$trapped")" -gt 40 ]
diff <(echo "$trapped") <(echo "$entries") || {
    echo "the procedures that trap errors (<) are not those of the table (>)"
    exit 1
}
