#!/usr/bin/env bash
# The table of messages names exactly the messages of the catalogues, each once, and the code asks
# for them by name.
#
#   messages.sh [PROJECT-FOLDER]      default: .
set -euo pipefail
cd "${1:-.}"

named=$(sed -nE 's/^constexpr std::int32_t [A-Za-z]+ = ([0-9]+);.*/\1/p' src/modules/messages.h | sort -n)
[ "$(wc -l <<<"$named")" -gt 100 ]
for catalogue in languages/*.po; do
    stored=$(sed -nE 's/^msgctxt "([0-9]+)"$/\1/p' "$catalogue" | while read -r id; do
        echo $((id - 1000))
    done | sort -n)
    diff <(echo "$named") <(echo "$stored") || {
        echo "the messages of src/modules/messages.h (<) are not those of $catalogue (>)"
        exit 1
    }
done

numbers=$(grep -rnE '(ObtenerMensaje|messageIfKnown|showNotice)\([0-9]|Message = [0-9]|message = [0-9]' \
    src/form src/modules src/component src/adapters/wx src/adapters/desktop || true)
if [ -n "$numbers" ]; then
    echo "Messages are asked for by their numbers:"
    echo "$numbers"
    exit 1
fi
