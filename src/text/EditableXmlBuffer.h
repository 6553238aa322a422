#pragma once

#include "foundation/Api.h"
#include "foundation/Object.h"
#include "foundation/String.h"
#include "foundation/Vector.h"
#include "text/XmlElementType.h"

#include <memory>
#include <set>

class XmlText;

/// A whole XML document as one text, and the answers to where things are in it. No tree is built:
/// each question is answered by scanning the text from a given offset.
///
/// Positions count 16-bit code units and are valid from 0 to length - 1; -1 means no position. An
/// operation that finds nothing, or is given an invalid position, answers -1, an empty text, false
/// or an empty set, and never throws.
///
/// The current element of a position is the innermost element whose start tag lies before it and
/// whose closing tag has not been passed. From the `<` of a start tag up to its `>`, that is the
/// parent; from the `>` on, the element itself.
///
/// The static twins, with the text as their last argument, scan a fragment that was cut out of a
/// document.
class FORME_API EditableXmlBuffer : public Core::Object {
public:
    /// An empty text.
    EditableXmlBuffer();
    ~EditableXmlBuffer() override;

    /// Names the root element, with prefix, as in "qfd:document". Walks that climb stop there.
    void setRootElement(const Core::String& name);

    /// Whether some element around `position` has the name, with prefix.
    bool isInElementContext(const Core::String& name, int position) const;

    /// Whether `position` lies inside a tag of `text`: behind its `<` and before its `>`. False in
    /// the very last tag of a text, and in comments, CDATA sections and processing instructions.
    /// True at every position of a text that holds no `<` and no `>`.
    static bool isInsideStartTag(const Core::String& text, int position);

protected:
    /// Answers questions about a text that another object changes.
    explicit EditableXmlBuffer(std::shared_ptr<XmlText> text);

    Core::String getRootElementName() const;

    // What stands at a position

    /// Below 0, or at or past the length.
    bool isOnInvalidPosition(int position) const;
    static bool isOnInvalidPosition(int position, const Core::String& text);

    /// On the `<` of any markup: tags of every kind, comments, CDATA sections, processing
    /// instructions.
    bool onTagStartPosition(int position) const;
    static bool onTagStartPosition(int position, const Core::String& text);

    bool commentTagAtPosition(int position) const;
    static bool commentTagAtPosition(int position, const Core::String& text);
    bool cdataSectionAtPosition(int position) const;
    static bool cdataSectionAtPosition(int position, const Core::String& text);
    bool processingInstructionTagAtPosition(int position) const;
    static bool processingInstructionTagAtPosition(int position, const Core::String& text);

    /// Any of the three above.
    bool ignoredElementAtPosition(int position) const;
    static bool ignoredElementAtPosition(int position, const Core::String& text);

    bool selfClosingTagAtPosition(int position) const;
    static bool selfClosingTagAtPosition(int position, const Core::String& text);

    /// Whether the tag at the position, or from inside text the next tag, is a closing tag.
    bool closingElementTagAtPosition(int position) const;

    XmlElementType getElementTypeOnStartTagPosition(int position) const;
    /// The type of what ends with the `>` at the position.
    XmlElementType getElementTypeOnEndTagPosition(int position) const;

    /// Whether `what` stands at a valid position. An empty `what` does.
    bool nextContentEquals(const Core::String& what, int position) const;
    static bool nextContentEquals(const Core::String& what, int position, const Core::String& text);
    /// The same for a position that may also be the length of the text.
    static bool nextContentEquals(const Core::String& what, const Core::String& text, int position);

    bool beforeFOTable(int position) const;
    /// Directly behind "</fo:table>".
    bool afterFOTable(int position) const;

    // Tags

    /// "fo:block", "/fo:block", "?xml", "!--". Without prefix, what stands before and with the
    /// first ":" is cut off, the "/" of a prefixed closing tag with it.
    Core::String getNameForTagAtPosition(int position, bool withPrefix) const;
    static Core::String getNameForTagAtPosition(int position, const Core::String& text);

    /// The name of the tag at the position, or from inside text of the next tag.
    Core::String getNextTagName(int position) const;
    Core::String getPreviousTagName(int position) const;
    static Core::String getPreviousTagName(int position, const Core::String& text);
    /// The previous tag's position; its name goes to `name`, empty if there is none.
    int getPreviousTagNameAndPos(int position, Core::String& name) const;
    static int getPreviousTagNameAndPosition(int position, const Core::String& text,
                                             Core::String& name);

    /// The tag at or after the position; never a comment, CDATA section or processing instruction.
    int getNextTagPosition(int position) const;
    /// The last tag whose `>` stands at or before the position; processing instructions included.
    int getPreviousTagPosition(int position) const;
    static int getPreviousTagPosition(int position, const Core::String& text);

    /// The closing tag of the start tag at the position. A self-closing tag is its own.
    int getClosingTagForTagAtPosition(int position) const;
    static int getClosingTagForTagAtPosition(int position, const Core::String& text);
    /// The start tag of the closing tag at the position. Never finds one at offset 0, and pairs an
    /// element that holds a self-closing one of the same name with that one.
    int getStartTagForTagAtPosition(int position) const;

    /// The first offset of the markup of that type that holds the position.
    int getElementStartPosition(XmlElementType type, int position) const;
    /// The offset just after the markup of that type that begins at the position.
    int getElementEndPosition(XmlElementType type, int position) const;

    // Steps over one unit of text: a character, an entity, a tag

    int getNextEditablePositionInXml(int position) const;
    static int getNextEditablePositionInXml(int position, const Core::String& text);
    int getPreviousEditablePositionInXml(int position) const;
    /// The first offset after the root element's start tag.
    int getFirstEditablePositionInXml() const;
    int getRootElementPos() const;

    // Attributes

    /// The name of the first attribute behind the position, which may be on the tag or on a name
    /// before.
    int getNextAttributePosition(int position) const;
    /// The name of the last attribute that begins before the position.
    int getPreviousAttributePosition(int position) const;
    Core::String getNameForAttributeAt(int position) const;
    /// The value as it stands, between its quotes.
    Core::String getValueForAttributeAt(int position) const;
    /// The offset just after the first quote at or after the position.
    int getNextAttributeValuePosition(int position) const;
    /// Whether the tag holds an attribute of that name at or behind the position; where goes to
    /// `found`.
    bool containsAttribute(int position, const Core::String& name, int& found) const;

    // Text

    /// The text from the position through the first `;`, or to the end of the text.
    Core::String getEscapeCharacterString(int position) const;
    /// Escapes plain text in place. Control characters other than the tab become blanks.
    void convertToValidXMLText(Core::String& plain) const;

    // The current element

    int getCurrentElementPosition(int position) const;
    static int getCurrentElementPosition(int position, const Core::String& text);
    Core::String getCurrentElementName(int position) const;
    static Core::String getCurrentElementName(int position, const Core::String& text);
    int getCurrentElementNameAndPos(int position, Core::String& name) const;
    /// The start tag without its `<` and `>`.
    Core::String getCurrentElementStartTagString(int position) const;
    /// The offset after the current element's start tag.
    int getFirstPositionInElementContaining(int position) const;
    /// The offset of the current element's closing tag.
    int getLastPositionInElementContaining(int position) const;

    // Ancestors

    Core::String getParentElementName(int position) const;
    /// The nearest element around the position that has the parent's name, which is the current
    /// element where that has the same name as its parent.
    int getParentElementPosition(int position) const;
    /// The nearest element around the position that has the name or, with `wantLast`, the
    /// outermost. The climb ends at `stopName`, itself tested first; an empty one means the root
    /// element. Without `withPrefix` names are compared without their prefixes.
    int searchParent(const Core::String& name, int position, bool wantLast, bool withPrefix,
                     const Core::String& stopName) const;
    int searchFirstParent(const Core::StringArray& names, int position, bool wantLast,
                          bool withPrefix, const Core::String& stopName) const;
    bool inListItemLabel(int position) const;
    bool isInFoFlow(int position) const;
    /// Whether both have an element of that name around them, and the nearest ones are the same.
    bool positionsAreInTheSameElement(const Core::String& name, int a, int b) const;
    bool positionsAreInTheSameStaticContent(int a, int b) const;
    /// Both in a flow, or neither.
    bool positionsAreInSameFlowTypes(int a, int b) const;
    /// Whether `b` lies in the flow or else the static content around `a`, its closing tag
    /// included.
    bool positionsAreInTheSameFlowElement(int a, int b) const;
    /// Strictly between the `<` of the element's start tag and that of its closing tag.
    bool elementContainsPosition(int element, int position) const;

    // Elements in document order

    /// The next start tag behind the position, never the one at it; -1 at the root's closing tag.
    int getNextElementPosition(int position) const;
    /// The last start tag before the current element's own.
    int getPreviousElementPosition(int position) const;
    Core::String getNextElementName(int position) const;
    int getNextElementByName(const Core::String& name, int position) const;
    /// The last tag of that name before the position; "/fo:block" finds closing tags.
    int getPreviousElementByName(const Core::String& name, int position) const;
    int getFirstElementByName(const Core::StringArray& names, int position) const;

    // Children and siblings

    /// The first tag in the element; its own closing tag where it has no child.
    int getFirstChildPosition(int element) const;
    int getNextChildByName(const Core::String& name, int element) const;
    /// The next element behind the one at the position; this may leave the parent.
    int getNextSiblingElementPos(int element) const;
    /// The same, within the element that is current at the position.
    int getSiblingElement(int element) const;
    /// The element before the current one, in the same parent. From a self-closing tag, and with
    /// `useCurrent` false, the element before that tag.
    int getPreviousNeighborPosition(int position, bool useCurrent) const;
    Core::String getPreviousNeighborName(int position, bool useCurrent) const;
    /// The tag behind the current element, which may close the parent; -1 where text follows.
    int getNextNeighborPosition(int position, bool useCurrent) const;
    /// The name of that tag, comments passed over; empty where text follows.
    Core::String getNextNeighborName(int position, bool useCurrent) const;

    // Paths: "/qfd:document/fo:page-sequence/fo:flow", from the root down, without indices

    Core::String getElementPath(int position) const;
    Core::String getPathForPosition(int position) const;
    /// The element that a path names among those around the position.
    int getElementPositionFromPath(const Core::String& path, int position) const;
    /// The path through the last occurrence of the name.
    Core::String getPathToParent(const Core::String& path, const Core::String& parentName) const;

    // Content

    /// The direct text of a simple element, for labels. Of an entity it takes the "&" only, and it
    /// drops the unit behind each child.
    Core::String getCharacterDataForElementAt(int element) const;
    /// The markup from `start` through `end`, both included, with the tags added that the range
    /// cuts off.
    Core::String getNativeText(int start, int end) const;
    /// The names of the elements opened from `start` up to but excluding `end` and still open
    /// there, the outermost first.
    Core::StringArray getClosingTagsBetweenPositions(int start, int end) const;
    Core::String stringArrayToTagString(const Core::StringArray& names) const;
    Core::String stringArrayToReverseTagString(const Core::StringArray& names) const;

    // Namespaces: declarations in the form xmlns:fo="..."

    /// Whether the set declares the same prefix, without regard to case.
    bool namespaceIsDefined(const Core::String& declaration,
                            const std::set<Core::String>& declared) const;
    Core::String namespaceSetToString(const std::set<Core::String>& declared) const;
    std::set<Core::String> getNamespacesFromElementAt(int element) const;
    /// What is declared around the position; an inner declaration hides an outer one.
    std::set<Core::String> getNamespacesFromAllContainers(int position) const;

    // The placeholder: "&#x00A0;" or U+00A0 as all that an element shows

    bool elementContainsJustNonBreakingSpace(int element) const;
    bool isNbspFollowedByCloseElement(int position) const;
    bool nbspFollowedByWspaceAndElementCloseTagAt(int position) const;
    /// Whether the position begins the run of white space that ends at the current element's
    /// closing tag.
    bool isLastValidWhiteSpaceBeforeElementClosed(int position) const;
    /// The first "&" or U+00A0 behind the unit at the position, tags notwithstanding; it need not
    /// be a placeholder.
    int getNonBreakingSpacePosition(int position) const;

private:
    std::shared_ptr<XmlText> text_;
};
