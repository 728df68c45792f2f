// A pattern of any kind against any text.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>

#include "runtime/error.h"
#include "runtime/like.h"
#include "runtime/text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace catalogador;
    FuzzedDataProvider data(bytes, size);
    const std::string text = data.ConsumeRandomLengthString(64);
    const std::string written = data.ConsumeRemainingBytesAsString();
    try {
        const LikePattern pattern(written);
        const bool matches = pattern.matches(text);
        if (const std::string* plain = pattern.plainSubstring())
            if (matches != containsText(text, *plain, Compare::binary)) std::abort();
        // More may stand around what is matched once runs are allowed there.
        if (matches && !LikePattern("*" + written + "*").matches(text)) std::abort();
        if (matches && !LikePattern("*" + written + "*").matches("a" + text + "b")) std::abort();
    } catch (const RuntimeError& error) {
        if (error.number() != error_number::invalidPattern) throw;
    }
    return 0;
}
