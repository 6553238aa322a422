#include "pages/SequencePrinting.h"

#include "foundation/Exception.h"
#include "foundation/String.h"
#include "foundation/xml/Element.h"
#include "foundation/xml/XmlDocument.h"
#include "pages/PaginationNodes.h"
#include "pages/PrintingOptions.h"

using Core::String;
using Xml::Element;

namespace {

/// How many options must be given, so that the last sequence has some.
std::size_t countNeeded(const std::list<Xml::Node*>& nodes) {
    std::size_t needed = 0;
    std::size_t index = 0;
    for (const Xml::Node* node : nodes) {
        ++index;
        if (PaginationNodes::hasFlows(*node))
            needed = index;
    }
    return needed;
}

/// What cannot be written in XML raises here, where nothing is lost.
void tryWriting(const PrintingAttributes& options) {
    Xml::XmlDocument unused;
    PrintingOptions::write(*unused.createRootNode(L"unused"), options);
}

} // namespace

std::vector<PrintingAttributes> SequencePrinting::of(const Element& root) {
    std::vector<PrintingAttributes> all;
    for (const Xml::Node* node : PaginationNodes::of(root))
        if (PaginationNodes::hasFlows(*node))
            all.push_back(
                PrintingOptions::read(static_cast<const Element&>(*node),
                                      PrintingOptions::makeId(static_cast<int>(all.size()))));
    return all;
}

void SequencePrinting::write(Element& root, const std::vector<PrintingAttributes>& options) {
    const std::list<Xml::Node*> nodes = PaginationNodes::of(root);
    const std::size_t needed = countNeeded(nodes);
    if (options.size() < needed)
        throw Core::Exception(
            L"printing options are given for " + String::formatS(static_cast<int>(options.size())) +
            L" page sequences, and " + String::formatS(static_cast<int>(needed)) + L" are needed");
    const auto forEachRow = [&](auto visit) {
        auto next = options.begin();
        for (Xml::Node* node : nodes) {
            if (PaginationNodes::hasFlows(*node))
                visit(static_cast<Element&>(*node), *next);
            if (next != options.end())
                ++next;
        }
    };
    forEachRow([](const Element&, const PrintingAttributes& row) { tryWriting(row); });
    forEachRow(PrintingOptions::write);
}
