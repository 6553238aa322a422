#include "foundation/values/QFDAttributeCollection.h"

#include <algorithm>

namespace {

/// Finds the entries of one attribute of one element.
auto sameAttributeAs(const QFDAttribute& entry) {
    return [id = entry.getObjectID(), name = entry.getAttributeName()](const QFDAttribute& other) {
        return other.getObjectID() == id && other.getAttributeName() == name;
    };
}

} // namespace

void QFDAttributeCollection::addAttributes(const Core::Vector<QFDAttribute>& entries) {
    entries_.insert(entries_.end(), entries.begin(), entries.end());
}

void QFDAttributeCollection::setAttribute(const QFDAttribute& entry) {
    const auto isSame = sameAttributeAs(entry);
    const auto first = std::find_if(entries_.begin(), entries_.end(), isSame);
    if (first == entries_.end()) {
        addAttribute(entry);
        return;
    }
    *first = entry;
    entries_.erase(std::remove_if(first + 1, entries_.end(), isSame), entries_.end());
}

void QFDAttributeCollection::removeAttribute(const QFDAttribute& entry) {
    std::erase_if(static_cast<std::vector<QFDAttribute>&>(entries_), sameAttributeAs(entry));
}
