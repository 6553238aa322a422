#include "text/store/StoredContent.h"

#include "text/TextView.h"

std::wstring StoredContent::slice(int start, int end) const {
    std::wstring slice;
    slice.reserve(static_cast<std::size_t>(end - start));
    TextStore(text_).copyTo(slice, start, end);
    return slice;
}

// What is not found is -1 as an int.

int StoredContent::find(std::wstring_view what, unsigned long long start) const noexcept {
    const TextStore text(text_);
    return static_cast<int>(TextView(text).find(what, start));
}

int StoredContent::rFind(std::wstring_view what, unsigned long long start) const noexcept {
    const TextStore text(text_);
    return static_cast<int>(TextView(text).rfind(what, start));
}
