#include "text/StoredTags.h"

using XmlScan::Text;

bool StoredTags::know(int position) const {
    if (!XmlScan::isValid(all(), position) || !store_.isRegular())
        return false;
    const int markup = store_.markupAround(position);
    return markup < 0 || !XmlScan::declarationAt(all(), markup) || markupEnd(markup) == position;
}

int StoredTags::next(int markup) const {
    if (XmlScan::standsAt(all(), XmlScan::foRootEnd, markup))
        return -1;
    const int behind = markupEnd(markup) + 1;
    return behind < store_.length() ? behind : -1;
}

// Deliberate: what stands before all markup is no text.
bool StoredTags::isText(int bracket) const {
    return markupEnd(bracket) != bracket && store_.markBefore(bracket, MarkKinds::starts()) >= 0;
}

// Deliberate: a section is read as a tag there.

int StoredTags::tagEnd(int position) const {
    return isTag(position) ? markupEnd(position) : XmlScan::tagEnd(all(), position);
}

bool StoredTags::selfClosingAt(int position) const {
    if (!isTag(position))
        return XmlScan::selfClosingAt(all(), position);
    return XmlScan::unitAt(all(), markupEnd(position) - 1) == L'/';
}

int StoredTags::nextTag(int position, MarkKinds kinds) const {
    int tag = store_.markFrom(position, kinds);
    while (XmlScan::ignoredAt(all(), tag))
        tag = store_.markFrom(tag + 1, kinds);
    return tag;
}

int StoredTags::previousTag(int position, MarkKinds kinds) const {
    int tag = store_.markBefore(position, kinds);
    if (tag >= 0 && markupEnd(tag) > position)
        tag = store_.markBefore(tag, kinds);
    while (XmlScan::commentAt(all(), tag) || XmlScan::cdataAt(all(), tag))
        tag = store_.markBefore(tag, kinds);
    return tag;
}

// Deliberate, as in XmlScan: what ends the text or a fo:root closes nothing, a start tag at offset
// 0 is never found, and a self-closing tag of the name counts as a start tag.
int StoredTags::startTag(int tag) const {
    if (!XmlScan::onTagStart(all(), tag))
        return -1;
    if (selfClosingAt(tag))
        return tag;
    if (!XmlScan::closingAt(all(), tag) || next(tag) < 0)
        return -1;
    const Text closing = XmlScan::tagName(all(), tag);
    const Text name = closing.substr(1);
    const MarkKinds kinds = MarkKinds::named(name);
    int depth = 0;
    for (int at = previousTag(tag, kinds); at > 0; at = previousTag(at, kinds)) {
        const Text found = XmlScan::tagName(all(), at);
        if (found == closing)
            ++depth;
        else if (found == name && depth-- == 0)
            return at;
    }
    return -1;
}
