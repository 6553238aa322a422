#pragma once

#include "text/EditableXmlBuffer.h"
#include "text/XmlText.h"

#include <memory>

/// The scanners, open to tests, on a text of the test's own.
class XmlProbe : public EditableXmlBuffer {
    using B = EditableXmlBuffer;

public:
    explicit XmlProbe(const Core::String& text, const wchar_t* root = L"r")
        : XmlProbe(std::make_shared<XmlText>(), text) {
        setRootElement(root);
    }

    const Core::String& text() const { return text_; }
    int length() const { return text_.length(); }
    /// Where `what` first stands.
    int at(const wchar_t* what) const { return text_.find(what, 0); }
    /// The offset behind it.
    int behind(const wchar_t* what) const { return at(what) + Core::String(what).length(); }

    using B::isInFoFlow, B::inListItemLabel, B::afterFOTable, B::beforeFOTable,
        B::cdataSectionAtPosition, B::closingElementTagAtPosition, B::commentTagAtPosition,
        B::containsAttribute, B::convertToValidXMLText, B::elementContainsPosition,
        B::elementContainsJustNonBreakingSpace, B::getCharacterDataForElementAt,
        B::getClosingTagForTagAtPosition, B::getClosingTagsBetweenPositions,
        B::getCurrentElementName, B::getCurrentElementNameAndPos, B::getCurrentElementPosition,
        B::getCurrentElementStartTagString, B::getElementEndPosition, B::getElementPath,
        B::getElementPositionFromPath, B::getElementStartPosition,
        B::getElementTypeOnEndTagPosition, B::getElementTypeOnStartTagPosition,
        B::getEscapeCharacterString, B::getFirstChildPosition, B::getFirstEditablePositionInXml,
        B::getFirstElementByName, B::getLastPositionInElementContaining, B::getNameForAttributeAt,
        B::getNameForTagAtPosition, B::getNamespacesFromAllContainers,
        B::getNamespacesFromElementAt, B::getNativeText, B::getNextAttributePosition,
        B::getNextAttributeValuePosition, B::getNextChildByName, B::getNextEditablePositionInXml,
        B::getNextElementByName, B::getNextElementName, B::getNextElementPosition,
        B::getNextNeighborPosition, B::getNextSiblingElementPos, B::getNextTagName,
        B::getNextTagPosition, B::getNonBreakingSpacePosition, B::getParentElementName,
        B::getParentElementPosition, B::getPathForPosition, B::getPathToParent,
        B::getPreviousAttributePosition, B::getPreviousEditablePositionInXml,
        B::getPreviousElementByName, B::getPreviousElementPosition, B::getPreviousNeighborName,
        B::getPreviousNeighborPosition, B::getPreviousTagName, B::getPreviousTagNameAndPosition,
        B::getPreviousTagPosition, B::getRootElementPos, B::getSiblingElement,
        B::getStartTagForTagAtPosition, B::getValueForAttributeAt,
        B::isLastValidWhiteSpaceBeforeElementClosed, B::isNbspFollowedByCloseElement,
        B::isOnInvalidPosition, B::namespaceIsDefined, B::namespaceSetToString,
        B::nbspFollowedByWspaceAndElementCloseTagAt, B::nextContentEquals,
        B::positionsAreInSameFlowTypes, B::positionsAreInTheSameElement,
        B::positionsAreInTheSameFlowElement, B::positionsAreInTheSameStaticContent,
        B::searchFirstParent, B::searchParent, B::stringArrayToReverseTagString,
        B::stringArrayToTagString;

private:
    XmlProbe(const std::shared_ptr<XmlText>& owner, const Core::String& text)
        : B(owner), text_(text) {
        owner->assign(text);
    }

    Core::String text_;
};
