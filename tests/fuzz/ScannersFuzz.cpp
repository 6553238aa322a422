// The scanners are given any text, well formed or not, and any position. They answer with a
// position within the text or with none, and they come to an end.

#include "text/EditableXmlBuffer.h"
#include "text/XmlText.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

namespace {

using Core::String;

class Scanners : private EditableXmlBuffer {
public:
    explicit Scanners(const String& text) : Scanners(std::make_shared<XmlText>(), text) {}

    void runAt(int position) const {
        askForPositions(position);
        askForKinds(position);
        askForTexts(position);
        askTwins(position);
        askForRanges(position);
    }

private:
    Scanners(const std::shared_ptr<XmlText>& owner, const String& text)
        : EditableXmlBuffer(owner), text_(text) {
        owner->assign(text);
        setRootElement(L"fo:root");
    }

    /// Behind the last unit is an answer too: that is where an element or the text may end.
    void require(int answer) const {
        if (answer < -1 || answer > text_.length())
            std::abort();
    }

    void askForPositions(int position) const {
        using Self = EditableXmlBuffer;
        using Scan = int (Self::*)(int) const;
        constexpr Scan scans[] = {&Scanners::getNextTagPosition,
                                  &Scanners::getPreviousTagPosition,
                                  &Scanners::getClosingTagForTagAtPosition,
                                  &Scanners::getStartTagForTagAtPosition,
                                  &Scanners::getNextEditablePositionInXml,
                                  &Scanners::getPreviousEditablePositionInXml,
                                  &Scanners::getNextAttributePosition,
                                  &Scanners::getPreviousAttributePosition,
                                  &Scanners::getNextAttributeValuePosition,
                                  &Scanners::getCurrentElementPosition,
                                  &Scanners::getFirstPositionInElementContaining,
                                  &Scanners::getLastPositionInElementContaining,
                                  &Scanners::getParentElementPosition,
                                  &Scanners::getNextElementPosition,
                                  &Scanners::getPreviousElementPosition,
                                  &Scanners::getFirstChildPosition,
                                  &Scanners::getNextSiblingElementPos,
                                  &Scanners::getSiblingElement,
                                  &Scanners::getNonBreakingSpacePosition};
        for (const Scan scan : scans)
            require((this->*scan)(position));
        for (const bool useCurrent : {false, true}) {
            require(getPreviousNeighborPosition(position, useCurrent));
            require(getNextNeighborPosition(position, useCurrent));
        }
        require(getFirstEditablePositionInXml());
        require(getRootElementPos());
        require(getNextElementByName(L"fo:block", position));
        require(getPreviousElementByName(L"/fo:block", position));
        require(getNextChildByName(L"fo:block", position));
        require(getFirstElementByName({L"fo:block", L"fo:inline"}, position));
        for (const bool wantLast : {false, true})
            require(searchParent(L"fo:block", position, wantLast, !wantLast, L""));
        int found = -1;
        containsAttribute(position, L"id", found);
        require(found);
    }

    void askForKinds(int position) const {
        using Self = EditableXmlBuffer;
        using Question = bool (Self::*)(int) const;
        constexpr Question questions[] = {&Scanners::onTagStartPosition,
                                          &Scanners::ignoredElementAtPosition,
                                          &Scanners::selfClosingTagAtPosition,
                                          &Scanners::closingElementTagAtPosition,
                                          &Scanners::beforeFOTable,
                                          &Scanners::afterFOTable,
                                          &Scanners::inListItemLabel,
                                          &Scanners::isInFoFlow,
                                          &Scanners::elementContainsJustNonBreakingSpace,
                                          &Scanners::isNbspFollowedByCloseElement,
                                          &Scanners::nbspFollowedByWspaceAndElementCloseTagAt,
                                          &Scanners::isLastValidWhiteSpaceBeforeElementClosed};
        for (const Question question : questions)
            (this->*question)(position);
        isInsideStartTag(text_, position);
        getElementTypeOnEndTagPosition(position);
        const XmlElementType type = getElementTypeOnStartTagPosition(position);
        if (type == xmlNone)
            return; // the answer is then the position itself, whatever it is
        require(getElementStartPosition(type, position));
        require(getElementEndPosition(type, position));
    }

    void askForTexts(int position) const {
        using Self = EditableXmlBuffer;
        using Name = String (Self::*)(int) const;
        constexpr Name names[] = {
            &Scanners::getNextTagName,           &Scanners::getPreviousTagName,
            &Scanners::getNameForAttributeAt,    &Scanners::getValueForAttributeAt,
            &Scanners::getEscapeCharacterString, &Scanners::getCurrentElementName,
            &Scanners::getParentElementName,     &Scanners::getCurrentElementStartTagString,
            &Scanners::getNextElementName,       &Scanners::getElementPath,
            &Scanners::getPathForPosition,       &Scanners::getCharacterDataForElementAt};
        for (const Name name : names)
            (this->*name)(position);
        for (const bool flag : {false, true}) {
            getNameForTagAtPosition(position, flag);
            getPreviousNeighborName(position, flag);
            getNextNeighborName(position, flag);
        }
        require(getElementPositionFromPath(getElementPath(position), position));
        namespaceSetToString(getNamespacesFromElementAt(position));
        getNamespacesFromAllContainers(position);
    }

    void askTwins(int position) const {
        require(getPreviousTagPosition(position, text_));
        require(getCurrentElementPosition(position, text_));
        // Deliberate: behind an unterminated CDATA section these two count from a missing end, and
        // their answer is only known to lie within the text and the length of a delimiter.
        getNextEditablePositionInXml(position, text_);
        getClosingTagForTagAtPosition(position, text_);
        getNameForTagAtPosition(position, text_);
        getCurrentElementName(position, text_);
        getPreviousTagName(position, text_);
    }

    void askForRanges(int position) const {
        for (const int other : {0, position / 2, position + 1, text_.length() - 1}) {
            const Core::StringArray names = getClosingTagsBetweenPositions(position, other);
            stringArrayToTagString(names);
            stringArrayToReverseTagString(names);
            getNativeText(position, other);
            positionsAreInTheSameElement(L"fo:block", position, other);
            positionsAreInTheSameFlowElement(position, other);
            elementContainsPosition(position, other);
        }
    }

    String text_;
};

/// Bytes above 0x7F become single units, among them U+00A0.
String widened(const std::uint8_t* data, std::size_t size) {
    return String(std::wstring_view(std::wstring(data, data + size)));
}

} // namespace

/// The first two bytes choose the position, before the text's start and behind its end included.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t longest = 4096; // a question may look at the whole text, many times
    if (size < 2 || size > longest)
        return 0;
    const String text = widened(data + 2, size - 2);
    const int range = text.length() + 5;
    const Scanners scanners(text);
    scanners.runAt((data[0] + 256 * data[1]) % range - 2);
    return 0;
}
