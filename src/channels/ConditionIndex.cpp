#include "channels/ConditionIndex.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"

#include <algorithm>

using Core::String;

int ConditionIndex::at(const XmlText& text, int position, XmlText::View sequence,
                       XmlText::View section) {
    const int outer = text.ancestor(position, sequence);
    const int around = text.ancestor(position, section);
    if (outer < 0 || around < outer)
        return 0;
    // The sections directly in the sequence: what stands between them may hold sequences, too.
    int reached = 0;
    for (int child = text.nextElement(outer); child >= 0 && child <= around;
         child = text.nextSibling(child))
        if (text.tagName(child) == section)
            ++reached;
    return std::max(reached - 1, 0);
}

int EditableDocumentBuffer::getConditionIndex(int position, const String& sequenceName,
                                              const String& sectionName) const {
    const String sequence = L"qfd:" + sequenceName;
    const String section = L"qfd:" + sectionName;
    return ConditionIndex::at(Document::of(*this).text(), position, sequence.view(),
                              section.view());
}
