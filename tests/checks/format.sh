#!/usr/bin/env bash
# Every source file is formatted as .clang-format says.
set -euo pipefail
command -v clang-format >/dev/null || {
    echo "skipped: clang-format is not installed"
    exit 77
}
mapfile -d '' files < <(find . \( -name build -o -name .git \) -prune -o \
    \( -name '*.cpp' -o -name '*.h' \) -print0)
if [ "${#files[@]}" -eq 0 ]; then
    echo "There is nothing to check"
    exit 1
fi
clang-format --dry-run -Werror "${files[@]}"
echo "Checked ${#files[@]} files"
