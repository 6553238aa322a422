// The place where reading should start, which travels in the document as an attribute of its root.

#include "document/Attributes.h"
#include "document/CommandScope.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/RecordedCommand.h"
#include "document/caret/Stops.h"
#include "foundation/ObjectId.h"
#include "text/Vocabulary.h"

using Core::String;

namespace {

constexpr const wchar_t* initialPosition = L"qf:initial-pos";
constexpr const wchar_t* identifier = L"fo:id";

void forgetInitialPosition(Document& document) {
    const int root = document.text().root();
    PropertyCollection properties = Attributes::of(document, root);
    if (!properties.containsProperty(initialPosition))
        return;
    properties.removePropertyByName(initialPosition);
    Attributes::replace(document, root, properties);
}

/// The block or inline around the caret, outside every conditional sequence: the copies of what is
/// within need not exist when the template is run.
int initialPositionElement(const Document& document) {
    const XmlText& text = document.text();
    const int element =
        text.ancestor(document.caret(), Vocabulary::strings<Vocabulary::initialPositions>());
    const int sequence =
        text.outermostAncestor(element, Vocabulary::strings<Vocabulary::conditionalSequences>());
    return sequence < 0
               ? element
               : text.ancestor(sequence, Vocabulary::strings<Vocabulary::initialPositions>());
}

String idOfElement(Document& document, int element) {
    const PropertyCollection present = Attributes::of(document, element);
    if (present.containsProperty(identifier))
        return present.getPropertyValue(identifier);
    PropertyCollection made;
    made.addProperty({identifier, ObjectId::generate()}, true);
    Attributes::merge(document, element, made);
    return made.getPropertyValue(identifier);
}

} // namespace

void EditableDocumentBuffer::saveInitialPosition(bool save) {
    Document& document = *document_;
    CommandScope scope(document);
    if (!save) {
        forgetInitialPosition(document);
        return;
    }
    const int element = initialPositionElement(document);
    if (element < 0)
        return;
    RecordedCommand command(document);
    PropertyCollection properties;
    properties.addProperty({initialPosition, idOfElement(document, element)}, true);
    Attributes::merge(document, document.text().root(), properties);
    if (!command.mayStand())
        command.takeBack();
}

void EditableDocumentBuffer::loadInitialPosition() {
    Document& document = *document_;
    const XmlText& text = document.text();
    CommandScope scope(document);
    const String id = Attributes::of(document, text.root()).getPropertyValue(initialPosition);
    if (id.empty())
        return;
    int element =
        text.nextNamed(document.caret(), Vocabulary::strings<Vocabulary::initialPositions>());
    while (element >= 0 && Attributes::of(document, element).getPropertyValue(identifier) != id)
        element = text.nextNamed(element, Vocabulary::strings<Vocabulary::initialPositions>());
    if (element < 0)
        return;
    document.endTyping();
    document.setCaret(Stops::next(document, element));
}
