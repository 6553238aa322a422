#include "pages/StaticContents.h"

#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "pages/PaginationNodes.h"
#include "trees/DOMBasedBuffer.h"
#include "trees/Elements.h"

#include <algorithm>

using Core::String;
using Xml::Element;
using Xml::Node;

namespace {

const String contentElement = L"static-content";

Element* find(const std::vector<Element*>& staticContents, const String& flowName) {
    const auto found =
        std::find_if(staticContents.begin(), staticContents.end(), [&](const Element* element) {
            return StaticContents::flowNameOf(*element) == flowName;
        });
    return found == staticContents.end() ? nullptr : *found;
}

} // namespace

std::vector<Element*> StaticContents::of(const Element& root) {
    std::vector<Element*> found;
    for (const Node* node : PaginationNodes::of(root))
        if (PaginationNodes::hasFlows(*node)) {
            const std::vector<Element*> own = Elements::childrenOf(*node, contentElement);
            found.insert(found.end(), own.begin(), own.end());
        }
    return found;
}

Element* StaticContents::named(const Element& root, const String& flowName) {
    if (flowName.empty())
        return nullptr;
    for (const Node* node : PaginationNodes::of(root))
        if (PaginationNodes::isSequence(*node))
            if (Element* found = find(Elements::childrenOf(*node, contentElement), flowName))
                return found;
    return nullptr;
}

String StaticContents::flowNameOf(const Element& staticContent) {
    return DOMBasedBuffer::getAttributeValue(&staticContent, L"flow-name", L"");
}

String StaticContents::masterOf(const Element& staticContent) {
    return DOMBasedBuffer::getAttributeValue(staticContent.get_parent(), L"master-reference", L"");
}

void StaticContents::add(Element& sequence, const String& flowName, const String& text) {
    if (find(Elements::childrenOf(sequence, contentElement), flowName))
        return;
    Xml::requireXmlText(flowName);
    Xml::requireXmlText(text);
    Element* flow = DOMBasedBuffer::getElementByName(&sequence, L"flow");
    Element* added = flow ? sequence.add_node_as_prev_sibling(flow, contentElement, L"fo")
                          : sequence.add_child(contentElement, L"fo");
    added->set_attribute(L"flow-name", flowName);
    added->set_attribute(L"font-family", L"Times");
    added->set_attribute(L"font-size", L"12pt");
    added->add_child(L"block", L"fo")->set_child_text(text);
}
