#pragma once

#include "foundation/String.h"

#include <map>

/// The texts of pages on which headers, footers and side regions are edited, and of what stands in
/// their flows meanwhile. Names are plain text.
namespace PracticePages {

/// A whole flow of empty lines with a notice that tells which page type is edited.
Core::String lockedFlow(const Core::String& flowName, const Core::String& master);
/// What stands in such a flow.
Core::String lockedContent(const Core::String& master);

/// A page sequence for a master that none uses, with the flow names of the regions by the names of
/// their elements.
Core::String dummyPage(const Core::String& master, std::map<Core::String, Core::String> regions);
/// A whole document with one page, whose only block holds the markup.
Core::String dummyDocument(const Core::String& markup);

/// Makes the first master-reference that stands in the text as an attribute refer to the master. It
/// keeps its kind of quotes. An empty name changes nothing.
void changeMasterReference(Core::String& text, const Core::String& master);

} // namespace PracticePages
