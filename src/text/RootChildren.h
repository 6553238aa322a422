#pragma once

#include "text/XmlText.h"

/// The elements that are children of a document's root, by their offsets; -1 means none. What
/// stands in one of them is not looked at.
namespace RootChildren {

int first(const XmlText& text);
/// The one behind that one.
int next(const XmlText& text, int child);
/// The first one of that name.
int named(const XmlText& text, XmlText::View name);

} // namespace RootChildren
