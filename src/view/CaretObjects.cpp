#include "view/CaretObjects.h"

#include "document/Document.h"
#include "text/Vocabulary.h"

using XmlScan::contains;
using XmlScan::Text;

int CaretObjects::behind(int element, int parent) {
    const XmlText& text = document_.text();
    const bool hasContent = text.openingAt(element);
    if (!hasContent && !text.selfClosingAt(element))
        return -1;
    const Text name = text.tagName(element);
    const bool isByName =
        contains(Vocabulary::atomicObjects, name) || contains(Vocabulary::scripts, name);
    const bool isAmongText = document_.isEditableAt(parent) && !document_.names.isEditable(name);
    if (!isByName && !(isAmongText && !(hasContent && holdsEditable(element))))
        return -1;
    return text.behindElement(element);
}

int CaretObjects::around(int position) {
    const XmlText& text = document_.text();
    int object = -1;
    for (int element = text.elementAround(position); element >= 0;) {
        const int parent = text.elementAround(element);
        if (behind(element, parent) >= 0)
            object = element;
        element = parent;
    }
    return object;
}

/// A walk asks of one element within another, before the same editable one.
bool CaretObjects::holdsEditable(int element) {
    const XmlText& text = document_.text();
    if (searchedFrom_ <= element && element < editable_)
        return text.isAround(element, editable_);
    int depth = 1;
    for (int tag = text.nextTag(text.next(element)); tag >= 0; tag = text.nextTag(text.next(tag))) {
        if (text.closingAt(tag)) {
            if (--depth == 0)
                return false;
        } else if (document_.isEditableAt(tag)) {
            searchedFrom_ = element;
            editable_ = tag;
            return true;
        } else {
            depth += text.openingAt(tag) ? 1 : 0;
        }
    }
    return false;
}
