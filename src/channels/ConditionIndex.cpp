#include "channels/ConditionIndex.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"

using Core::String;

int ConditionIndex::at(const XmlText& text, int position, XmlText::View sequence,
                       XmlText::View section) {
    const int around = text.ancestor(position, section);
    int index = 0;
    int sibling = text.nextNamed(text.ancestor(position, sequence), section);
    while (sibling >= 0 && sibling < around) {
        sibling = text.nextSibling(sibling);
        if (sibling >= 0 && text.tagName(sibling) == section)
            ++index;
    }
    return index;
}

int EditableDocumentBuffer::getConditionIndex(int position, const String& sequenceName,
                                              const String& sectionName) const {
    const String sequence = L"qfd:" + sequenceName;
    const String section = L"qfd:" + sectionName;
    return ConditionIndex::at(Document::of(*this).text(), position, sequence.view(),
                              section.view());
}
