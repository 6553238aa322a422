#include "text/RootEdges.h"

#include "text/XmlScan.h"

using XmlScan::length;
using XmlScan::Text;

namespace {

int rootStart(Text text) {
    int at = XmlScan::find(text, L'<', 0);
    while (at >= 0 && (XmlScan::ignoredAt(text, at) || XmlScan::standsAt(text, L"<!", at)))
        at = XmlScan::find(text, L'<', XmlScan::behindUnit(text, at));
    return at;
}

int countFromRootEnd(Text text, int root) {
    const int closing = XmlScan::rFind(text, L"</", length(text) - 1);
    const Text name = XmlScan::tagName(text, root);
    if (closing < 0 || !XmlScan::standsAt(text, name, closing + 2))
        return -1;
    const int end = XmlScan::skipSpaces(text, closing + 2 + length(name));
    const bool isTag = XmlScan::standsAt(text, L">", end);
    return isTag && XmlScan::skipSpaces(text, end + 1) == length(text) ? length(text) - closing
                                                                       : -1;
}

} // namespace

RootEdges RootEdges::of(Text text) {
    const int root = rootStart(text);
    return {root, root < 0 ? length(text) : XmlScan::behindUnit(text, root),
            countFromRootEnd(text, root)};
}
