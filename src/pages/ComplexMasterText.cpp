#include "pages/ComplexMasterText.h"

#include "pages/DetachedText.h"
#include "pages/EdgedSplice.h"

#include <algorithm>

using Core::String;

namespace {

String markupOf(const DetachedText& text, int master) {
    return text.text().selfClosingAt(master) ? String() : text.text().markupOf(master);
}

} // namespace

std::vector<String> ComplexMasterText::of(const DetachedText& text) {
    std::vector<String> found;
    for (const int master : text.complexMasters())
        if (const String markup = markupOf(text, master); !markup.empty())
            found.push_back(markup);
    return found;
}

String ComplexMasterText::named(const DetachedText& text, const std::vector<String>& names,
                                const String& name) {
    const std::vector<int> masters = text.complexMasters();
    const auto index =
        static_cast<std::size_t>(std::find(names.begin(), names.end(), name) - names.begin());
    return name.empty() || index >= std::min(names.size(), masters.size())
               ? String()
               : markupOf(text, masters[index]);
}

void ComplexMasterText::cutOut(String& buffer, const String& markup) {
    const DetachedText text(buffer);
    for (const int master : text.complexMasters())
        if (markupOf(text, master) == markup) {
            const DetachedText::Range range = text.rangeOf(master);
            EdgedSplice::apply(buffer, range.first, range.second, String(),
                               EdgedSplice::Head::CanBeEmpty, EdgedSplice::Removal::OfRange);
            return;
        }
}
