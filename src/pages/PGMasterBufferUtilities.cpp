#include "pages/PGMasterBufferUtilities.h"

#include "pages/ComplexMasterText.h"
#include "pages/DetachedText.h"
#include "pages/EdgedSplice.h"
#include "pages/FlowContent.h"
#include "pages/PracticePages.h"
#include "pages/StaticContentChoice.h"
#include "pages/TextElements.h"
#include "trees/Fragment.h"

#include <algorithm>

using Core::String;
using Range = DetachedText::Range;

struct DetachedPages {
    DetachedText text;
    String workingRoot;
    String originalFlow;
};

namespace {

constexpr Range none = DetachedText::none;

/// The first hit at or behind the offset that is in no comment.
int findOutsideComments(const DetachedText& text, const String& what, int from) {
    int hit = text.text().find(what.view(), from);
    while (hit >= 0 && text.isInComment(hit))
        hit = text.text().find(what.view(), hit + 1);
    return hit;
}

Range sequenceAt(const DetachedText& text, std::size_t index) {
    return index < text.sequences().size() ? text.rangeOf(text.sequences()[index]) : none;
}

String masterOf(const DetachedText& text, int sequence) {
    return TextElements::attributeOf(text.text(), sequence, L"master-reference");
}

void addTexts(std::map<String, String>& texts, const DetachedText& text,
              const std::map<String, int>& elements) {
    for (const auto& [flow, element] : elements)
        texts[flow] = text.text().markupOf(element);
}

EdgedSplice::Removal removal(bool insertOnly) {
    return insertOnly ? EdgedSplice::Removal::None : EdgedSplice::Removal::OfRange;
}

} // namespace

PGMasterBufferUtilities::PGMasterBufferUtilities(const String& text)
    : PGMasterBuffer(text),
      pages_(std::make_shared<DetachedPages>(DetachedPages{
          DetachedText(text), text.find(L"fo:root", 0) >= 0 ? L"fo:root" : L"qfd:document", {}})) {}

void PGMasterBufferUtilities::setWorkingRootElement(const String& name) {
    pages_->workingRoot = name;
}

String PGMasterBufferUtilities::getWorkingRootElement() const {
    return pages_->workingRoot;
}

void PGMasterBufferUtilities::setOriginalFoFlow(const String& flow) {
    pages_->originalFlow = flow;
}

String PGMasterBufferUtilities::getOriginalFoFlow() const {
    return pages_->originalFlow;
}

// Finding by letters

void PGMasterBufferUtilities::makeCommentsPositionList() {
    pages_->text.findComments();
}

bool PGMasterBufferUtilities::isCommentAtPos(int position) const {
    return pages_->text.isInComment(position);
}

Range PGMasterBufferUtilities::getFirstElementPos(const String& name) const {
    return getNextElementPos(name, 0);
}

Range PGMasterBufferUtilities::getNextElementPos(const String& name, int from) const {
    const String closingTag = L"</" + name + L">";
    const int start = findOutsideComments(pages_->text, L"<" + name + L" ", from);
    const int closing = start < 0 ? -1 : findOutsideComments(pages_->text, closingTag, start);
    return closing < 0 ? none : Range(start, closing + closingTag.length());
}

// Page sequences

Range PGMasterBufferUtilities::getFirstPageSimpleOrRepeatPos() const {
    return sequenceAt(pages_->text, 0);
}

void PGMasterBufferUtilities::getNextPageSimpleOrRepeatPos(Range& range) const {
    const DetachedText& text = pages_->text;
    range = range.second < 0 ? none : sequenceAt(text, text.sequenceFrom(range.second));
}

Range PGMasterBufferUtilities::getPageSeqPos(int index) const {
    return index < 0 ? none : sequenceAt(pages_->text, static_cast<std::size_t>(index));
}

Range PGMasterBufferUtilities::getCurrentPageSequencePos(int position) const {
    return pages_->text.rangeOf(pages_->text.pageSequenceAround(position));
}

String PGMasterBufferUtilities::getRefForPageSeqAtPos(const Range& range) const {
    return masterOf(pages_->text, range.first);
}

// Static contents

Range PGMasterBufferUtilities::getFirstStaticContentPos(const String& reference) const {
    const DetachedText& text = pages_->text;
    const bool counts =
        reference.empty() ||
        (!text.sequences().empty() && masterOf(text, text.sequences().front()) == reference);
    return counts ? getNextStaticContentPos(0, String()) : none;
}

Range PGMasterBufferUtilities::getNextStaticContentPos(int from, const String& reference) const {
    const DetachedText& text = pages_->text;
    const std::vector<DetachedText::StaticContent>& all = text.staticContents();
    const auto counts = [&](const DetachedText::StaticContent& found) {
        return reference.empty() || (text.text().tagName(found.sequence) == L"fo:page-sequence" &&
                                     masterOf(text, found.sequence) == reference);
    };
    const auto first = std::find_if(text.staticContentFrom(from), all.end(), counts);
    return from < 0 || first == all.end() ? none : text.rangeOf(first->element);
}

void PGMasterBufferUtilities::getStaticContentTextMap(std::map<String, String>& texts,
                                                      const String& master, bool matchMaster,
                                                      bool matchRegions) const {
    const DetachedText& text = pages_->text;
    const StaticContentChoice choice{master, matchMaster, matchRegions};
    addTexts(texts, text, choice.in(text, *fragment().root()));
}

void PGMasterBufferUtilities::getStaticContentTextMap(std::map<String, String>& texts,
                                                      int sequenceIndex) const {
    const DetachedText& text = pages_->text;
    const int sequence = getPageSeqPos(sequenceIndex).first;
    const StaticContentChoice choice{String(), false, false, sequence};
    if (sequence >= 0)
        addTexts(texts, text, choice.in(text, *fragment().root()));
}

void PGMasterBufferUtilities::insertStaticContentFromDifferentPage(String& text, const String&,
                                                                   const String& staticText) {
    pages_->text.assign(text);
    insertReplace(text, getFirstStaticContentPos(String()), staticText, true);
}

// Complex page masters

String PGMasterBufferUtilities::getComplexMasterBufferTextByName(const String& name) const {
    return ComplexMasterText::named(pages_->text, getAllComplexPageMasters(), name);
}

String PGMasterBufferUtilities::stripComplexMastersFromBuffer(const String& buffer,
                                                              String& removed) const {
    String rest = buffer;
    removed += ComplexMasterText::cutOut(pages_->text, rest);
    return rest;
}

// Flows

String PGMasterBufferUtilities::getFoFlowFromBuffer(const String& text) {
    const Range content = FlowContent::find(text);
    if (content == none)
        return {};
    pages_->originalFlow = text.subString(static_cast<unsigned>(content.first),
                                          static_cast<unsigned>(content.second - 1));
    return pages_->originalFlow;
}

String PGMasterBufferUtilities::emptyFoFlowFromBuffer(const String& text,
                                                      const String& flowContent) const {
    const Range content = FlowContent::find(text);
    if (content == none)
        return {};
    String changed = text;
    if (!flowContent.empty())
        insertReplace(changed, content.first, content.second, flowContent, false);
    return changed;
}

// Splicing

void PGMasterBufferUtilities::insertReplace(String& text, int start, int end,
                                            const String& insertion, bool insertOnly) const {
    EdgedSplice::apply(text, start, end, insertion, EdgedSplice::Head::KeepsFirstUnit,
                       removal(insertOnly));
}

void PGMasterBufferUtilities::insertReplace(String& text, const Range& range,
                                            const String& insertion, bool insertOnly) const {
    EdgedSplice::apply(text, range.first, range.second, insertion, EdgedSplice::Head::CanBeEmpty,
                       removal(insertOnly));
}

// Texts of pages for editing

String PGMasterBufferUtilities::getDummyPage(const String& master,
                                             std::map<String, String> regions) const {
    return PracticePages::dummyPage(master, std::move(regions));
}

String PGMasterBufferUtilities::makeDummyBuffer(const String& markup) {
    return PracticePages::dummyDocument(markup);
}

String PGMasterBufferUtilities::getNewFoFlow(const String& master) const {
    return PracticePages::lockedContent(master);
}

bool PGMasterBufferUtilities::clearFormattingOnSelectedText(String&, const String& path) const {
    parseAttributes(path);
    return false;
}
