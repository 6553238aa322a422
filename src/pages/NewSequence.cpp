#include "pages/NewSequence.h"

#include "foundation/xml/Element.h"
#include "foundation/xml/QualifiedName.h"
#include "pages/RegionType.h"
#include "pages/Regions.h"
#include "pages/RepeatData.h"
#include "pages/RunningTexts.h"
#include "pages/SequenceAttributes.h"

#include <algorithm>
#include <array>
#include <set>
#include <vector>

using Core::String;
using Xml::Element;

namespace {

/// In the order in which their static contents stand.
constexpr std::array<RegionType, 4> sides{RegionType::REGION_START, RegionType::REGION_END,
                                          RegionType::REGION_BEFORE, RegionType::REGION_AFTER};

const String placeholder = L"\x00A0";

String textAt(const std::map<String, String>& texts, const String& key) {
    const auto found = texts.find(key);
    return found == texts.end() ? String() : found->second;
}

String flowNameOf(RegionType type, const std::map<String, String>& regions) {
    const String element = Regions::nameOf(type);
    const String name = textAt(regions, element);
    return name.empty() ? L"xsl-" + element : name;
}

void addFlow(Element& sequence, const wchar_t* element, const String& name) {
    Element& flow = *sequence.add_child(element, L"fo");
    flow.set_attribute(L"flow-name", name);
    flow.set_attribute(L"font-size", L"12pt");
    flow.set_attribute(L"font-family", L"Times");
    flow.add_child(L"block", L"fo")->add_child_text(placeholder);
}

void writeRepeatData(Element& repeat, const RepeatData& data) {
    SequenceAttributes::setOfRepeat(repeat, L"xpath", data.xpath);
    if (!data.condition.empty())
        SequenceAttributes::setOfRepeat(repeat, L"condition", data.condition);
    if (!data.sort.empty())
        SequenceAttributes::setOfRepeat(repeat, L"sort", data.sort);
    SequenceAttributes::setParentId(repeat, data.parentId);
}

/// Each once, where it stands last: later references win.
std::vector<String> distinctMasters(const Core::Vector<ReferenceInfo>& references) {
    std::vector<String> masters;
    std::set<String> known;
    for (auto reference = references.rbegin(); reference != references.rend(); ++reference)
        if (known.insert(reference->masterName).second)
            masters.push_back(reference->masterName);
    std::reverse(masters.begin(), masters.end());
    return masters;
}

} // namespace

Element& NewSequence::append(Element& root, PageSequenceType type, const String& master,
                             const RepeatData& data) {
    const bool repeats = type == PageSequenceType::PageSequenceRepeat;
    Element& sequence = repeats ? *root.add_child(L"page-sequence-repeat", L"qfd")
                                : *root.add_child(L"page-sequence", L"fo");
    SequenceAttributes::setReference(sequence, master);
    if (repeats)
        writeRepeatData(sequence, data);
    return sequence;
}

void NewSequence::appendDocument(Element& root, const String& address) {
    Xml::requireXmlText(address);
    Element& document = *root.add_child(L"qf:insert-document");
    document.set_attribute(L"xmlns:qf", L"urn:forme:qf/1.0");
    SequenceAttributes::setSource(document, address);
}

void NewSequence::addFlows(Element& sequence, const std::map<String, String>& regions,
                           const std::map<String, String>& texts) {
    std::set<String> given; // two regions can have one name
    for (const RegionType side : sides) {
        const String name = flowNameOf(side, regions);
        if (textAt(texts, name).empty() && given.insert(name).second)
            addFlow(sequence, L"static-content", name);
    }
    addFlow(sequence, L"flow", flowNameOf(RegionType::REGION_BODY, regions));
}

void NewSequence::collectTexts(const RunningTexts& running, const PageMasterData& master,
                               std::map<String, String>& texts) {
    if (master.isSimplePageMaster()) {
        running.collect(master.getName(), texts);
        return;
    }
    for (const String& simpleMaster : distinctMasters(master.getReferences()))
        running.collect(simpleMaster, texts);
}
