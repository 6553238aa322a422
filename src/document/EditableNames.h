#pragma once

#include "foundation/String.h"
#include "text/TextView.h"

#include <vector>

/// The names of the elements, with prefix, in which the caret may stand, and which of them are part
/// of a line.
class EditableNames {
public:
    /// Register a name; one that is registered already stays.
    void addEditable(const Core::String& name) { add(editable_, name); }
    void addInline(const Core::String& name) { add(inline_, name); }

    bool isEditable(TextView name) const { return contains(editable_, name); }
    bool isInline(TextView name) const { return contains(inline_, name); }
    bool isBlock(TextView name) const { return isEditable(name) && !isInline(name); }
    /// Whether it is the name of a closing tag, "/fo:inline", of what is part of a line.
    bool closesInline(TextView name) const {
        return name.starts_with(L'/') && isInline(name.substr(1));
    }

private:
    using Names = std::vector<Core::String>;

    static void add(Names& names, const Core::String& name);
    static bool contains(const Names& names, TextView name);

    Names editable_;
    Names inline_;
};
