// The caret on its way to a page sequence, a region or a reference.

#include "document/EditableDocumentBuffer.h"

#include "document/CaretWalk.h"
#include "document/CommandScope.h"
#include "text/XmlScan.h"

#include <map>

using Core::String;
using Core::StringArray;
using XmlScan::Text;

namespace {

const StringArray& pageMasters() {
    static const StringArray names{L"fo:simple-page-master", L"fo:page-sequence-master"};
    return names;
}

const StringArray& pageMasterReferences() {
    static const StringArray names{L"fo:single-page-master-reference",
                                   L"fo:repeatable-page-master-reference",
                                   L"fo:conditional-page-master-reference"};
    return names;
}

const StringArray& sideRegions() {
    static const StringArray names{L"fo:region-before", L"fo:region-after", L"fo:region-start",
                                   L"fo:region-end"};
    return names;
}

/// The first start tag of that name behind the tag at `position` and before `end`; -1 if none.
int nextTagNamed(Text text, Text name, int position, int end) {
    int tag = position;
    do
        tag = XmlScan::nextTag(text, XmlScan::stepForward(text, tag));
    while (tag >= 0 && tag < end && XmlScan::tagName(text, tag) != name);
    return tag < end ? tag : -1;
}

} // namespace

// Flows

void EditableDocumentBuffer::moveCaretToFirstFoFlow() {
    CommandScope scope(this);
    const int first = getNextValidCaretPos(0);
    setCaret(false, getNextPositionAdjustedToFoFlow(first));
}

void EditableDocumentBuffer::resetCaretFromStaticContent() {
    if (staticContentAround(caretPos_) >= 0)
        moveCaretToFirstFoFlow();
}

bool EditableDocumentBuffer::moveCaretToPageSequence(int index) {
    const int flow = firstFlowOf(getPageSequencePosition(index));
    const int stop = getNextValidCaretPos(flow);
    if (flow < 0 || stop <= flow || stop > getClosingTagForTagAtPosition(flow))
        return false;
    setCaretPos(false, stop);
    return true;
}

bool EditableDocumentBuffer::moveCaretToReference(int sequenceIndex, int offset) {
    if (sequenceIndex == -1)
        return false;
    if (offset < 1)
        return moveCaretToPageSequence(sequenceIndex);
    const int flow = firstFlowOf(getPageSequencePosition(sequenceIndex));
    const int start = getNextEditablePositionInXml(flow);
    if (start < 0 || offset > getClosingTagForTagAtPosition(flow) - start)
        return false;
    const int target = outsideMarkup(start + offset);
    if (target < start || !inEditableElement(target))
        return false;
    CommandScope scope(this);
    setCaret(false, target);
    return true;
}

/// The position, or where it lies inside a tag or an entity the nearest stop before it.
int EditableDocumentBuffer::outsideMarkup(int position) const {
    const int start = XmlScan::unitStart(text_.view(), position);
    if (start == position || CaretWalk(*this, start).isStop())
        return start;
    return getPreviousValidCaretPos(start);
}

// Static regions

void EditableDocumentBuffer::moveCaretToFirstStaticRegion() {
    std::map<String, String> regions; // by the master, which many sequences can have in common
    for (int generator = getNextPageSeq(0); generator >= 0; generator = getNextPageSeq(generator)) {
        const String master =
            getPropertiesFromElementAt(generator).getPropertyValue(L"fo:master-reference");
        if (regions.find(master) == regions.end())
            regions[master] = getFirstPageRegionNameFromMaster(master);
        const int stop = getFirstEditPosInStaticContent(regions[master], generator);
        if (stop < 0)
            continue;
        setCaretPos(false, stop);
        return;
    }
}

void EditableDocumentBuffer::moveCaretToStaticRegion(const String& flowName, int sequenceIndex) {
    const int stop =
        getFirstEditPosInStaticContent(flowName, getPageSequencePosition(sequenceIndex));
    if (stop >= 0)
        setCaretPos(false, stop);
}

int EditableDocumentBuffer::getFirstEditPosInStaticContent(const String& flowName,
                                                           int generator) const {
    const int end = getClosingTagForTagAtPosition(generator);
    const Text text = text_.view();
    int content = nextTagNamed(text, L"fo:static-content", generator, end);
    while (content >= 0) {
        const int closing = getClosingTagForTagAtPosition(content);
        if (getPropertiesFromElementAt(content).getPropertyValue(L"fo:flow-name") == flowName) {
            const int stop = getNextValidCaretPos(content);
            if (stop >= 0 && stop <= closing)
                return stop;
        }
        content = nextTagNamed(text, L"fo:static-content", closing, end);
    }
    return -1;
}

String EditableDocumentBuffer::getFirstPageRegionNameFromMaster(const String& masterName) const {
    int master = pageMasterNamed(masterName);
    if (getNameForTagAtPosition(master, true) == L"fo:page-sequence-master") {
        const int reference = getFirstElementByName(pageMasterReferences(), master);
        master = pageMasterNamed(
            getPropertiesFromElementAt(reference).getPropertyValue(L"fo:master-reference"));
    }
    const int region = getFirstElementByName(sideRegions(), master);
    if (region < 0 || region > getClosingTagForTagAtPosition(master))
        return {};
    const String name = getPropertiesFromElementAt(region).getPropertyValue(L"fo:region-name");
    return name.empty() ? L"xsl-" + getNameForTagAtPosition(region, false) : name;
}

int EditableDocumentBuffer::pageMasterNamed(const String& name) const {
    int master = getFirstElementByName(pageMasters(), getLayoutMasterSetPosition());
    while (master >= 0 &&
           getPropertiesFromElementAt(master).getPropertyValue(L"fo:master-name") != name)
        master = getFirstElementByName(pageMasters(), master);
    return master;
}
