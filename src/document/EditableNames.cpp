#include "document/EditableNames.h"

#include <algorithm>

void EditableNames::add(Names& names, const Core::String& name) {
    if (!contains(names, name.view()))
        names.push_back(name);
}

bool EditableNames::contains(const Names& names, TextView name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const Core::String& known) { return known.view() == name; });
}
