#include "pages/ComplexMasterText.h"

#include "pages/DetachedText.h"
#include "pages/EdgedSplice.h"

#include <algorithm>
#include <map>

using Core::String;

namespace {

String markupOf(const DetachedText& text, int master) {
    return text.text().selfClosingAt(master) ? String() : text.text().markupOf(master);
}

} // namespace

String ComplexMasterText::named(const DetachedText& text, const std::vector<String>& names,
                                const String& name) {
    const std::vector<int> masters = text.complexMasters();
    const auto index =
        static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
    return name.empty() || index >= std::min(names.size(), masters.size())
               ? String()
               : markupOf(text, masters[index]);
}

String ComplexMasterText::cutOut(const DetachedText& text, String& buffer) {
    const DetachedText from(buffer);
    std::multimap<String, DetachedText::Range> there; // those of one text in their order
    for (const int master : from.complexMasters())
        there.emplace(markupOf(from, master), from.rangeOf(master));
    String cut;
    std::vector<DetachedText::Range> ranges;
    for (const int master : text.complexMasters()) {
        const String markup = markupOf(text, master);
        const auto found = there.lower_bound(markup);
        if (markup.empty() || found == there.end() || found->first != markup)
            continue;
        cut += markup;
        ranges.push_back(found->second);
        there.erase(found);
    }
    std::sort(ranges.begin(), ranges.end());
    EdgedSplice::remove(buffer, ranges);
    return cut;
}
