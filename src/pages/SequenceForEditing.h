#pragma once

#include "foundation/String.h"

#include <set>
#include <vector>

class Document;
class XmlText;

/// The page sequences of a document as text: what stands beside their flows, and their static
/// contents. The index counts page sequences, repeats and inserted documents. One that cannot hold
/// a flow, as an inserted document or a self-closing element, has no such text and stays as it is.
namespace SequenceForEditing {

/// The `<` of the one with that index; -1 where it can hold no flow.
int at(const Document& document, int index);
/// The same of all, in their order.
std::vector<int> all(const Document& document);
/// Where static contents belong: before the flow, or without one behind the start tag and the
/// printing options.
int placeOfStaticContents(const XmlText& text, int sequence);
/// The namespaces that the sequence and the root declare, as xmlns:x="uri".
std::set<Core::String> namespacesIn(const XmlText& text, int sequence);

/// The whole sequence with a locked flow in the place of its last, the others gone, as one of the
/// master.
Core::String whole(const Document& document, int index, const Core::String& master,
                   const Core::String& flowName);
/// What stands in the sequence, with the text in the place of its last flow, the others gone.
Core::String contentWithFlow(const Document& document, int index, const Core::String& flow);

// Changes, each one undo step; they answer whether they were made

/// Removes the sequence's static contents, with the lines that these leave empty.
bool removeStaticContents(Document& document, int index);
/// Puts the markup in the place of all static contents, before the flow.
bool replaceStaticContents(Document& document, int index, const Core::String& markup);

/// The same as a part of another change, in the sequence at that position. What stands before it
/// moves only where the root gets declarations. Answers whether all prefixes are declared now.
bool putStaticContents(Document& document, int sequence, const Core::String& markup);

} // namespace SequenceForEditing
