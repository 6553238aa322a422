#pragma once

#include "foundation/String.h"

#include <string_view>
#include <vector>

/// The names of the elements, with prefix, in which the caret may stand, and which of them are part
/// of a line.
class EditableNames {
public:
    /// Register a name; one that is registered already stays.
    void addEditable(const Core::String& name) { add(editable_, name); }
    void addInline(const Core::String& name) { add(inline_, name); }

    bool isEditable(std::wstring_view name) const { return contains(editable_, name); }
    bool isInline(std::wstring_view name) const { return contains(inline_, name); }
    bool isBlock(std::wstring_view name) const { return isEditable(name) && !isInline(name); }
    /// Whether it is the name of a closing tag, "/fo:inline", of what is part of a line.
    bool closesInline(std::wstring_view name) const {
        return name.starts_with(L'/') && isInline(name.substr(1));
    }

private:
    using Names = std::vector<Core::String>;

    static void add(Names& names, const Core::String& name);
    static bool contains(const Names& names, std::wstring_view name);

    Names editable_;
    Names inline_;
};
