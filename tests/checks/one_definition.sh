#!/usr/bin/env bash
# Every name has one definition in the program: it is linked as a whole, and the linker compares the
# types of all its files.
#
#   one_definition.sh BUILD-FOLDER
set -euo pipefail
build=$1
flags="-O0 -g0 -flto=auto -Wodr"
strict="-Werror=odr -Werror=lto-type-mismatch"

# Two types of one name must be found, or the check would find nothing at all.
mkdir -p "$build"
echo 'struct Same { int a; Same(); }; Same::Same() : a(1) {} int main() { return Same().a; }' \
    >"$build/one.cpp"
echo 'struct Same { double a; Same(int); }; Same::Same(int x) : a(x) {} double use() { return Same(2).a; }' \
    >"$build/other.cpp"
# shellcheck disable=SC2086
if g++ $flags $strict -o "$build/two" "$build/one.cpp" "$build/other.cpp" 2>"$build/two.log"; then
    echo "Two types of one name were linked without a word"
    exit 1
fi

# shellcheck disable=SC2086
cmake -S . -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=g++ -DCMAKE_BUILD_TYPE=None \
    -DBUILD_TESTING=OFF "-DCMAKE_CXX_FLAGS=$flags" "-DCMAKE_EXE_LINKER_FLAGS=$flags $strict" \
    >"$build.log"
if ! cmake --build "$build" --target catalogador -j "$(nproc)" >>"$build.log" 2>&1; then
    grep -E -A8 'error|FAILED' "$build.log" | head -n 60
    exit 1
fi
echo "One definition of everything"
