// Any text as a rewording: the guard decides the same way twice, and a text always passes as its own
// rewording unless it is empty.
#include "kit/listing/Numbers.h"
#include "kit/listing/WordingGuard.h"
#include "kit/support/Text.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessivo;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t middle = size == 0 ? 0 : data[0] % size;
    ListingWriteUp writeUp;
    writeUp.headline = "Mac";
    writeUp.text = bytes.substr(0, middle);
    writeUp.language = size % 2 ? "en" : "es";
    writeUp.facts.numbers = Numbers::find(writeUp.text);
    const std::string text = bytes.substr(middle);
    if (WordingGuard::check(text, writeUp) != WordingGuard::check(text, writeUp)) std::abort();
    for (const GuardIssue& issue : WordingGuard::check(writeUp.text, writeUp)) {
        issue.message();
        if (issue.kind == GuardIssue::Case::addedNumber || issue.kind == GuardIssue::Case::missingNumber)
            std::abort();
    }
    return 0;
}
