#include "pages/PageSequenceRows.h"

#include "foundation/values/XPathHelpers.h"
#include "foundation/xml/Element.h"
#include "pages/PaginationNodes.h"
#include "pages/SequenceAttributes.h"
#include "trees/Elements.h"

#include <map>
#include <optional>
#include <set>

using Core::String;
using Core::Vector;
using Xml::Element;

namespace {

/// None for an element that names no master.
std::optional<PageSequenceInfo> rowOn(const Xml::Attribute* master, int kind,
                                      const Element& element) {
    if (!master)
        return std::nullopt;
    PageSequenceInfo row;
    row.kind = kind;
    row.masterReference = master->get_value();
    row.id = Elements::valueOf(element, L"id");
    return row;
}

std::optional<PageSequenceInfo> sequenceRow(const Element& element) {
    return rowOn(element.get_attribute(L"master-reference"), PageSequenceInfo::pageSequence,
                 element);
}

std::optional<PageSequenceInfo> insertedDocumentRow(const Element& element) {
    if (!element.get_attribute(L"src"))
        return std::nullopt;
    PageSequenceInfo row;
    row.kind = PageSequenceInfo::insertDocument;
    row.externalSource = SequenceAttributes::sourceOf(element);
    return row;
}

std::optional<PageSequenceInfo> repeatRow(const Element& element) {
    std::optional<PageSequenceInfo> row = rowOn(element.get_attribute(L"master-reference", L"fo"),
                                                PageSequenceInfo::pageSequenceRepeat, element);
    if (row) {
        row->xpath = Elements::valueOf(element, L"xpath");
        row->sort = Elements::valueOf(element, L"sort");
        row->condition = Elements::valueOf(element, L"condition");
        row->parentSequenceId = Elements::valueOf(element, L"parent-sequence-id");
    }
    return row;
}

std::optional<PageSequenceInfo> rowOf(const Element& element) {
    if (PaginationNodes::isSequence(element))
        return sequenceRow(element);
    return PaginationNodes::isRepeat(element) ? repeatRow(element) : insertedDocumentRow(element);
}

/// By its id, the first repeat that has it.
std::map<String, const PageSequenceInfo*> repeatsById(const Vector<PageSequenceInfo>& rows) {
    std::map<String, const PageSequenceInfo*> repeats;
    for (const PageSequenceInfo& row : rows)
        if (row.kind == PageSequenceInfo::pageSequenceRepeat && !row.id.empty())
            repeats.emplace(row.id, &row);
    return repeats;
}

} // namespace

Vector<PageSequenceInfo> PageSequenceRows::of(const Element& root) {
    Vector<PageSequenceInfo> rows;
    for (const Xml::Node* node : PaginationNodes::of(root))
        if (const auto row = rowOf(static_cast<const Element&>(*node)))
            rows.push_back(*row);
    return rows;
}

String PageSequenceRows::contextOf(const Vector<PageSequenceInfo>& rows,
                                   const std::vector<String>& visited, const String& id) {
    const std::map<String, const PageSequenceInfo*> repeats = repeatsById(rows);
    std::set<String> met(visited.begin(), visited.end());
    std::vector<String> steps; // the innermost first
    String current = id;
    auto found = repeats.find(current);
    while (found != repeats.end() && met.insert(current).second) {
        steps.push_back(XPathHelpers::removeXPathFilters(found->second->xpath));
        current = found->second->parentSequenceId;
        found = repeats.find(current);
    }
    // A chain that ends with a repeat without parent begins with that one's path.
    String context;
    if (steps.empty() || !current.empty())
        context = L"/";
    for (auto step = steps.rbegin(); step != steps.rend(); ++step)
        context = context.empty() ? *step : XPathHelpers::composeXPath(context, *step);
    return context;
}
