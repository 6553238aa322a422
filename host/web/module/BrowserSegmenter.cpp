#include "BrowserSegmenter.h"

#include <emscripten.h>

// A wide character is one 16-bit code unit in 32 bits. The last text is kept, since a word is
// asked for by several questions about the same text.
// clang-format off
EM_JS(int, boundaryOf, (int unit, const wchar_t* start, int length, int position, bool forward), {
    if (!boundaryOf.known)
        boundaryOf.known = ["grapheme", "word", "sentence"].map(
            granularity => ({segmenter: new Intl.Segmenter(undefined, {granularity})}));
    let text = "";
    for (let i = 0; i < length; i += 4096)
        text += String.fromCharCode(
            ...HEAPU32.subarray(start / 4 + i, start / 4 + Math.min(i + 4096, length)));
    const memory = boundaryOf.known[unit];
    if (memory.text !== text) {
        memory.text = text;
        memory.segments = memory.segmenter.segment(text);
    }
    const piece = memory.segments.containing(forward ? position : position - 1);
    return forward ? piece.index + piece.segment.length : piece.index;
});
// clang-format on

int BrowserSegmenter::next(Unit unit, std::wstring_view text, int position) const {
    const int length = static_cast<int>(text.size());
    return position >= length
               ? length
               : boundaryOf(static_cast<int>(unit), text.data(), length, position, true);
}

int BrowserSegmenter::previous(Unit unit, std::wstring_view text, int position) const {
    return boundaryOf(static_cast<int>(unit), text.data(), static_cast<int>(text.size()), position,
                      false);
}
