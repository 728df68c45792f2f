#!/usr/bin/env bash
# Released binaries are built with what stops the exploiting of memory errors.
#
#   hardening.sh BUILD-FOLDER FILE...    programs and libraries of Linux or of Windows
set -euo pipefail

build=$1
shift
failures=0
fail() {
    echo "FAILED: $file: $1"
    failures=$((failures + 1))
}
# has PATTERN OUTPUT DESCRIPTION
has() { grep -qE -e "$1" <<<"$2" || fail "$3"; }

elf() {
    local headers dynamic symbols code
    headers=$(readelf -hlW "$file")
    dynamic=$(readelf -dW "$file")
    symbols=$(readelf --dyn-syms -W "$file")
    code=$(objdump -d --no-show-raw-insn "$file")
    has 'Type: +DYN' "$headers" "it is loaded at a fixed address"
    has 'FLAGS_1.*PIE' "$dynamic" "it is no position-independent program"
    has 'GNU_RELRO' "$headers" "its tables of addresses stay writable"
    has 'FLAGS.*(BIND_NOW|NOW)' "$dynamic" "its functions are bound late"
    has 'GNU_STACK .* RW ' "$headers" "its stack can be executed"
    has '__stack_chk_fail' "$symbols" "its stack frames are not protected"
    has '__[a-z]+_chk@' "$symbols" "its calls of the C library are not checked"
    # Every function of its own that may be called by address begins so.
    has 'endbr64' "$(grep -A1 '<main>:' <<<"$code")" "its calls by address are not marked"
    # How a frame larger than a page is entered.
    has 'or[lq] +\$0x0,\(%rsp\)' "$code" "large stack frames skip the guard page"
}

pe() {
    local tool=x86_64-w64-mingw32-objdump bits characteristics
    bits=$(objdump -f "$file")
    characteristics=$("$tool" -p "$file")
    has 'DYNAMIC_BASE' "$characteristics" "it is loaded at a fixed address"
    has 'NX_COMPAT' "$characteristics" "its data can be executed"
    if grep -q 'pei-x86-64' <<<"$bits"; then
        has 'HIGH_ENTROPY_VA' "$characteristics" "its address has few possible values"
    fi
    has 'stack smashing detected' "$(strings -n 8 "$file")" "its stack frames are not protected"
}

for file in "$@"; do
    case $file in
        *.exe | *.dll) pe ;;
        *) elf ;;
    esac
done
# The compiler was told; what it makes of that is seen above.
commands=$(tr -d '\n' <"$build/compile_commands.json")
for option in -fstack-protector-strong -Werror=format-security; do
    file=$build
    has "$option" "$commands" "it is not compiled with $option"
done
echo "Checked $# files"
[ "$failures" -eq 0 ]
