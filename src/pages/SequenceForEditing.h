#pragma once

#include "foundation/String.h"

class Document;
class XmlText;

/// The page sequences of a document as text: what stands beside their flows, and their static
/// contents. The index counts page sequences, repeats and inserted documents. One that cannot hold
/// a flow, as an inserted document or a self-closing element, has no such text and stays as it is.
namespace SequenceForEditing {

/// The `<` of the one with that index; -1 where it can hold no flow.
int at(const Document& document, int index);
/// Where static contents belong: before the flow, or without one behind the start tag and the
/// printing options.
int placeOfStaticContents(const XmlText& text, int sequence);

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

} // namespace SequenceForEditing
