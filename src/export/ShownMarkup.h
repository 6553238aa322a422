#pragma once

#include <string_view>

/// What a reader sees of the elements of a template, in the terms of XSL-FO.
namespace ShownMarkup {

enum class As {
    Object,      ///< a formatting object, with what stands in it
    Blocks,      ///< what stands in it: blocks
    Inlines,     ///< what stands in it: a part of a line
    Control,     ///< a control of a form
    Picture,     ///< a picture of it, if it has one
    Nothing,     ///< nothing of it
    ObjectsInIt, ///< the formatting objects in it, but no text: it is unknown
};

struct Shown {
    As as = As::ObjectsInIt;
    std::string_view object = {}; ///< its name; the one that carries the properties of a part
    std::string_view property = {};
    std::string_view value = {}; ///< of a property that the object has besides
};

/// Of the element with that prefix, as it is written, and name.
Shown of(std::string_view prefix, std::string_view name);

/// What a control shows, and how it is framed.
struct Control {
    std::string_view type; ///< in small letters
    std::string_view border;
    std::string_view checked; ///< in the place of a value
    std::string_view unchecked;
};

/// A control that is not known is a button.
const Control& controlOf(std::string_view type);

} // namespace ShownMarkup
