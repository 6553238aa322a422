#pragma once

#include <forme/document/EditableDocumentBuffer.h>

/// The primitives that change the text, each as one undo step. What would change nothing is no
/// step.
namespace RecordedPrimitives {

/// Throws std::invalid_argument for a text with a character that XML cannot hold.
void insertXmlTextAtPosition(EditableDocumentBuffer& document, int position,
                             const Core::String& xml);
Core::String deleteXmlText(EditableDocumentBuffer& document, int start, int end);
Core::String deleteContentAndAdjustCaret(EditableDocumentBuffer& document, int start, int end);

} // namespace RecordedPrimitives
