#pragma once

#include "foundation/String.h"
#include "foundation/values/PageMasterData.h"
#include "pages/PageSequenceType.h"

#include <map>

class RunningTexts;
struct RepeatData;

namespace Xml {
class Element;
}

/// Page sequences that are new in a tree.
namespace NewSequence {

/// Appended to the root, without content. The data are those of a repeat.
Xml::Element& append(Xml::Element& root, PageSequenceType type, const Core::String& master,
                     const RepeatData& data);
/// Appends an external document. Throws Core::Exception, and changes nothing, where the address
/// cannot be written in XML.
void appendDocument(Xml::Element& root, const Core::String& address);

/// Gives the sequence the flows that its master's regions call for, each with an empty block. A
/// side region for which there is a text gets none; a new sequence so looks like the others on its
/// master.
void addFlows(Xml::Element& sequence, const std::map<Core::String, Core::String>& regions,
              const std::map<Core::String, Core::String>& texts);

/// Adds the texts of the other sequences on that master.
void collectTexts(const RunningTexts& running, const PageMasterData& master,
                  std::map<Core::String, Core::String>& texts);

} // namespace NewSequence
