// The place where reading should start, which travels in the document as an attribute of its root.

#include "document/EditableDocumentBuffer.h"

#include "document/CommandScope.h"
#include "document/RecordedCommand.h"
#include "foundation/ObjectId.h"

using Core::String;
using Core::StringArray;

namespace {

constexpr const wchar_t* initialPosition = L"qf:initial-pos";
constexpr const wchar_t* identifier = L"fo:id";

const StringArray& readableElements() {
    static const StringArray names{L"fo:block", L"fo:inline"};
    return names;
}

const StringArray& conditionalSequences() {
    static const StringArray names{L"qfd:conditional-block-sequence",
                                   L"qfd:conditional-inline-sequence"};
    return names;
}

} // namespace

void EditableDocumentBuffer::saveInitialPosition(bool save) {
    CommandScope scope(this);
    if (!save) {
        forgetInitialPosition();
        return;
    }
    const int element = initialPositionElement();
    if (element < 0)
        return;
    RecordedCommand command(this);
    PropertyCollection properties;
    properties.addProperty({initialPosition, idOfElement(element)}, true);
    setPropertiesForElementAt(getRootElementPos(), properties);
    if (!command.mayStand())
        command.takeBack();
}

void EditableDocumentBuffer::forgetInitialPosition() {
    const int root = getRootElementPos();
    PropertyCollection properties = getPropertiesFromElementAt(root);
    if (!properties.containsProperty(initialPosition))
        return;
    properties.removePropertyByName(initialPosition);
    replaceProperties(root, properties);
}

/// The block or inline around the caret, outside every conditional sequence: the copies of what is
/// within need not exist when the template is run.
int EditableDocumentBuffer::initialPositionElement() const {
    const int element = searchFirstParent(readableElements(), caretPos_, false, true, L"");
    const int sequence = searchFirstParent(conditionalSequences(), element, true, true, L"");
    return sequence < 0 ? element
                        : searchFirstParent(readableElements(), sequence, false, true, L"");
}

String EditableDocumentBuffer::idOfElement(int element) {
    const PropertyCollection present = getPropertiesFromElementAt(element);
    if (present.containsProperty(identifier))
        return present.getPropertyValue(identifier);
    PropertyCollection made;
    made.addProperty({identifier, ObjectId::generate()}, true);
    setPropertiesForElementAt(element, made);
    return made.getPropertyValue(identifier);
}

void EditableDocumentBuffer::loadInitialPosition() {
    CommandScope scope(this);
    const String id =
        getPropertiesFromElementAt(getRootElementPos()).getPropertyValue(initialPosition);
    if (id.empty())
        return;
    int element = getFirstElementByName(readableElements(), caretPos_);
    while (element >= 0 && getPropertiesFromElementAt(element).getPropertyValue(identifier) != id)
        element = getFirstElementByName(readableElements(), element);
    if (element < 0)
        return;
    endKeyTypingSequence();
    setCaret(false, getNextEditablePositionInFo(element, false, false));
}
