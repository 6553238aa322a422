#pragma once

#include "foundation/values/PropertyCollection.h"

class Document;
class XmlText;

/// What a document says of who may do what with it: attributes of its root element. Only one of
/// them means something here; the others are carried for the host.
namespace Protection {

/// The attribute that refuses editing with "true", in capitals or not.
inline constexpr const wchar_t* editing = L"qf:protect-editing";

/// Whether an attribute of that name is a setting.
bool isSetting(const Core::String& name);

/// The root element whose attributes are the settings; -1 where it is neither "qfd:document" nor
/// "fo:root".
int bearer(const XmlText& text);

/// The settings in their order, with values as they stand in the text.
PropertyCollection settingsOf(const XmlText& text);

bool refusesEditing(const PropertyCollection& settings);

/// Puts these in the place of all settings, as one undo step. What is as it was stays as it is
/// spelt, and nothing happens where all is. False, and no trace, where the document refuses.
bool write(Document& document, const PropertyCollection& settings);

} // namespace Protection
