#!/usr/bin/env bash
# The core sees the standard library and itself, and each layer of it only itself and those below.
# It does not ask which system it is built for either, nor for the files of that system.
#
#   core_includes.sh [SOURCE-FOLDER]      default: src
set -euo pipefail
cd "${1:-src}"

# layer: the folders that its files may include
layers="runtime: runtime
platform: platform runtime
printing: printing platform runtime
modules: modules platform runtime
form: form component modules printing platform runtime
component: component form modules printing platform runtime"

standard="algorithm any array atomic barrier bit bitset cassert ccomplex cctype cerrno cfenv cfloat
charconv chrono cinttypes climits clocale cmath codecvt compare complex concepts
condition_variable coroutine csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime
cuchar cwchar cwctype deque exception execution format forward_list fstream functional
future initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map
memory memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex
scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept stop_token
streambuf string string_view strstream syncstream system_error thread tuple type_traits typeindex
typeinfo unordered_map unordered_set utility valarray variant vector version"

one_of() { tr -s ' \n' '|' <<<"$1" | sed 's/|$//'; }

system_macros="_?WIN32|_WIN64|__MINGW(32|64)__|_MSC_VER|__(gnu_)?linux__|__unix__|__APPLE__"
system_macros+="|__FreeBSD__|__ANDROID__|_POSIX_VERSION|__GLIBC__"

checked=0
asked=""
bad=""
while IFS=: read -r layer below; do
    own="\"($(one_of "${below# }"))/[A-Za-z0-9_/]+\\.h\""
    allowed="#[[:space:]]*include[[:space:]]*($own|<($(one_of "$standard"))>)"
    count=$(find "$layer" -type f ! -name CMakeLists.txt | wc -l)
    if [ "$count" -eq 0 ]; then
        echo "There is nothing to check in $layer"
        exit 1
    fi
    checked=$((checked + count))
    bad+=$(grep -rnE --exclude=CMakeLists.txt '^[[:space:]]*(#|%:)[[:space:]]*(include|import)' \
        "$layer" | grep -vE "$allowed" || true)
    asked+=$(grep -rnwE --exclude=CMakeLists.txt "$system_macros" "$layer" || true)
done <<<"$layers"

if [ -n "$bad" ]; then
    echo "The core includes what it must not see:"
    echo "$bad"
    exit 1
fi
if [ -n "$asked" ]; then
    echo "The core asks which system it is built for:"
    echo "$asked"
    exit 1
fi
echo "Checked $checked files"
