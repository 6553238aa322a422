#include "pages/EdgedSplice.h"

#include "text/XmlScan.h"

#include <algorithm>

using Core::String;

namespace {

bool standsAt(const String& text, wchar_t unit, int position) {
    return XmlScan::isValid(text.view(), position) && text[position] == unit;
}

/// The last offset of what stands before the range; 0 where nothing does.
int headEnd(const String& text, int start) {
    if (start <= 0)
        return 0;
    const int last = start - 1;
    return last > 0 && standsAt(text, L'<', last) ? last - 1 : last;
}

int tailStart(const String& text, int end) {
    const int from = standsAt(text, L'<', end) ? end - 1 : end;
    return standsAt(text, L'>', from) ? from + 1 : from;
}

} // namespace

void EdgedSplice::apply(String& text, int start, int end, const String& insertion, Head head,
                        Removal removal) {
    if (end < 0 || end < start)
        return;
    const int last = headEnd(text, start);
    const bool isEmpty = last == 0 && head == Head::CanBeEmpty;
    const String before = isEmpty ? String() : text.subString(0, static_cast<unsigned>(last));
    const int from = removal == Removal::None ? before.length() : tailStart(text, end);
    text.replace(0, static_cast<unsigned>(std::max(from, 0)), before + insertion);
}

void EdgedSplice::remove(String& text, const std::vector<std::pair<int, int>>& ranges) {
    String kept;
    int from = 0;
    for (const auto& [start, end] : ranges) {
        const int last = headEnd(text, start);
        if (last >= from && last > 0)
            kept += text.subString(static_cast<unsigned>(from), static_cast<unsigned>(last));
        from = tailStart(text, end);
    }
    text.replace(0, static_cast<unsigned>(from), kept);
}
