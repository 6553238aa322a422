#pragma once

#include "foundation/String.h"

struct RepeatData;

namespace Xml {
class Element;
}

/// What the start tags of page sequences and of their static contents say, and how that is changed.
/// What does not fit the kind of the element changes nothing, nor does an empty name of a master or
/// a flow.
namespace SequenceAttributes {

/// The attribute that names the page master.
inline constexpr const wchar_t* reference = L"master-reference";

/// Throws Core::Exception where one of the values holds a character that XML has no way to write.
/// Who changes more than one of them asks before the first.
void requireWritable(const Core::String& master, const RepeatData& data);

/// The page master that the element refers to, whatever it is; empty without one.
Core::String referenceOf(const Xml::Element& element);
/// Of a sequence or repeat.
void setReference(Xml::Element& element, const Core::String& master);
void renameReference(Xml::Element& element, const Core::String& from, const Core::String& to);

Core::String idOf(const Xml::Element& element);
void setId(Xml::Element& element, const Core::String& id);

/// The address of an inserted document, without the "url(...)" around it.
Core::String sourceOf(const Xml::Element& element);
void setSource(Xml::Element& element, const Core::String& address);

/// "xpath", "condition" and "sort" of a repeat.
void setOfRepeat(Xml::Element& element, const wchar_t* name, const Core::String& value);
/// The repeat from whose nodes its path starts; empty for none.
void setParentId(Xml::Element& element, const Core::String& id);

/// The first static content of that flow name; null without one and for the empty name.
Xml::Element* staticContent(const Xml::Element& sequence, const Core::String& flowName);
/// Nothing where the sequence has a static content of the new name.
void renameFlow(const Xml::Element& sequence, const Core::String& from, const Core::String& to);

} // namespace SequenceAttributes
