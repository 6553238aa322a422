#pragma once

#include "document/ElementInfo.h"
#include "document/IEditableBufferMonitor.h"
#include "document/TextRange.h"
#include "document/history/EditAction.h"
#include "document/history/EditActionStack.h"
#include "foundation/Api.h"
#include "foundation/HtmlParser.h"
#include "foundation/Object.h"
#include "foundation/SmartPtr.h"
#include "foundation/SpellChecker.h"
#include "foundation/SpellingError.h"
#include "foundation/String.h"
#include "foundation/TextSegmenter.h"
#include "foundation/Vector.h"
#include "foundation/values/PropertyCollection.h"
#include "text/EditableXmlBuffer.h"
#include "text/TextChange.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>
#include <vector>

class Document;
class EditableTableBuffer;
class FormBuffer;
class ListBuffer;
class TextRewrite;
enum class StopSide;
enum class TableRowGroupType;
struct Drawn;
struct EditingState;
struct ElementPlace;

/// How a document is saved.
enum class DocumentEncoding {
    Utf8 = 1,         ///< UTF-8 without a byte order mark
    Utf8WithMark = 2, ///< UTF-8 with a byte order mark
    Utf16WithMark = 3 ///< UTF-16 little-endian with a byte order mark
};

namespace Xml {

/// What a document promises to be when it is printed to PDF.
enum class PDFConformance {
    Default = 0,
    PDFX1a2003 = 1,
    PDFA1a2005 = 2,
    PDFA1b2005 = 3,
    PDF508 = 4
};

} // namespace Xml

/// What selected text is read as.
enum class TextFormat { Plain = 0, Native = 2 };

/// Where a search goes. Any other value finds nothing.
enum class Direction { Forward = 0, Backward = 2 };

/// What EditableDocumentBuffer::insertBreak() makes.
enum class BreakType {
    Page = 0,     ///< a new block on a new page
    Column = 1,   ///< a new block in a new column
    Soft = 2,     ///< a new line in the same block
    OddPage = 3,  ///< a new block on the next odd page
    EvenPage = 4, ///< a new block on the next even page
    Hard = 5,     ///< a new block
    List = 6      ///< a new item of the list around the caret
};

/// A document that is being edited: its text, the caret and the selection, the history, and the
/// monitor that hears of changes. The text is one XML text that is never reserialised; commands
/// edit it in place.
///
/// A host makes one for each open document and holds it through a SmartPtr. It sets the names (root
/// and editable elements), gives it text, sets its monitor, and then passes on what the user does.
/// Each call runs to its end on the caller's thread; one thread at a time may use a buffer.
///
/// Positions count 16-bit code units; -1 means none. A command that cannot act changes nothing:
/// text, caret and history stay as they are and no notice is given. Only file access and spelling
/// raise, a Core::Exception.
class FORME_API EditableDocumentBuffer : public EditableXmlBuffer {
public:
    /// An empty document without a caret, with no names registered.
    EditableDocumentBuffer();
    ~EditableDocumentBuffer() override;

    EditableDocumentBuffer(const EditableDocumentBuffer&) = delete;
    EditableDocumentBuffer& operator=(const EditableDocumentBuffer&) = delete;

    // Setting up. A host's standard setup is the root "qfd:document"; the editable elements
    // "fo:block", "fo:inline", "fo:wrapper", "fo:basic-link", "fo:bidi-override" and "qf:form"; and
    // of these inline: "fo:inline", "fo:wrapper", "fo:basic-link" and "fo:bidi-override".

    /// Registers a name, with prefix, in which the caret may stand; one that is registered already
    /// stays.
    void addEditableElement(const Core::String& name);
    /// Registers an editable name as inline.
    void addInlineEditableElement(const Core::String& name);

    bool isInlineEditableElementName(const Core::String& name) const;
    /// Whether the name is "/" and an inline editable name.
    bool isInlineEditableElementClosingTagName(const Core::String& name) const;
    /// Whether the name is editable and not inline.
    bool isBlockEditableElementName(const Core::String& name) const;

    /// Whether the document is protected from editing, as SecurityBuffer sets it. Then whatever
    /// would change text or history does nothing, in silence, but for setContent(), loading, undo,
    /// redo and the security buffer's own commit; a replacing search only searches. What a host
    /// puts into the history itself is its own affair.
    bool isProtectedFromEditing() const;

    // The monitor, which is not owned and must outlive the buffer or be set to null

    void setMonitor(IEditableBufferMonitor* monitor);
    IEditableBufferMonitor* getMonitor() const;
    void notifyBufferChanged();
    void notifyCaretChanged();
    void notifySelectionChanged();

    // The text

    Core::String getContent() const;
    /// The units from `start` up to but excluding `end`; empty where that is no range of the text.
    Core::String getContent(int start, int end) const;

    /// The number of the text as it is now, for a host that follows it: another, greater one if
    /// the text has changed since a number was last given.
    std::uint64_t getTextVersion() const;
    /// What has changed in the text since the version of that number, whatever made it: one range
    /// that holds all changes and parts no pair of surrogates; an empty one if nothing has, as by
    /// a command that was refused or raised. Nothing if it is none of the last 256 versions that
    /// were asked for: then the text has to be read anew. It costs as much as versions lie
    /// between. Neither raises.
    std::optional<TextChange> changeSince(std::uint64_t version) const;

    /// Replaces the whole text, each "\r\n" by "\n", and puts the caret at its first place. Whether
    /// the text is well formed is not looked at. With `resetHistory` nothing can be undone
    /// afterwards. Without, the replacement is recorded as two steps, the old text and the new, of
    /// which an empty one is left out: the first undo only puts the new text in again. A caller
    /// that wants one step brackets the call with an EditActionGroup.
    void setContent(const Core::String& content, bool resetHistory);

    /// Loads a file and forgets the history. The encoding is told by the file's byte order mark,
    /// else by its XML declaration, else it is UTF-8. Throws Core::Exception with path, byte offset
    /// and reason when the file cannot be read or decoded or is empty; the buffer is then as
    /// before.
    void setContentFromFile(const Core::String& path);

    /// Writes the text as it stands. The XML declaration is not adjusted: if it names another
    /// encoding, changeXmlEncoding() comes first. The file appears whole or not at all: on failure
    /// it throws Core::Exception and an old file is as before. Any other encoding than the three
    /// writes nothing.
    void saveToFile(const Core::String& path, DocumentEncoding encoding) const;

    /// Sets the encoding that the XML declaration names, if one opens the text. What can be no name
    /// of an encoding is refused. One undo step.
    void changeXmlEncoding(const Core::String& encoding);

    /// Sets one declaration, xmlns:x="uri", on the root element; answers by how much the text
    /// behind it moved. Anything else is refused with 0. One undo step.
    int updateRootNamespaces(const Core::String& declaration);

    /// The namespace declarations in scope at the caret, each with a blank before it.
    Core::String getNamespaces() const;

    /// Whether the root set is "qfd:document" or "fo:root".
    bool isQFDDocument() const;
    bool isFODocument() const;

    int getLayoutMasterSetPosition() const;
    int getQFDTemplateDefsPosition() const;
    /// The text from `position` up to the page masters, closed as a document: with the root's
    /// position, the template definitions alone. Empty without page masters behind the position.
    Core::String getQFDTemplateDefsString(int position) const;
    /// The offset just after the page masters; -1 if there are none.
    int getFirstPageGeneratorPos() const;
    /// What stands behind the page masters up to the end of the last fo:page-sequence, in the
    /// root's tags. Empty without one.
    Core::String getAllPageSequencesWrappedInRoot() const;

    // Undo and redo

    /// One step back or forth: the outermost group, or one record outside any. A step whose
    /// beginning was trimmed away at the limit of 10000 records is dropped and ends the history.
    void undo();
    void redo();
    /// Whether the list holds anything; group markers count.
    bool canUndo() const;
    bool canRedo() const;

    /// Ends a run of typing, so that what is typed next is a step of its own.
    void endKeyTypingSequence();

    /// The history, for those who bracket several operations or keep an offset valid across them.
    EditActionStack& getEditActionStack();

    // The primitives, which change the text and adjust the caret, and record nothing: whoever calls
    // them pushes the matching EditAction. A position outside the text changes nothing, and in a
    // protected document nothing does.

    /// Inserts before `position`, which may be the length of the text. A caret or pivot at or
    /// behind it moves along.
    void insertXmlTextAtPosition(int position, const Core::String& xml);
    /// Removes from `start` through `end`, both included; answers what was removed. A caret within
    /// goes to `start`, but one exactly on `end` to `start - 1`.
    Core::String deleteXmlText(int start, int end);
    /// Removes from `start` up to but excluding `end`, which must be a valid offset, and puts the
    /// caret to `start`; answers what was removed.
    Core::String deleteContentAndAdjustCaret(int start, int end);

    // The caret and the selection, which runs from the pivot to the caret

    int getCaretPos() const;
    /// Equal to the caret when nothing is selected.
    int getSelectionPivotPos() const;

    /// Puts the caret to a position, -1 for none; with `extend` the pivot stays. Refused inside
    /// markup, and where the selection would leave its flow or static content. Ends a run of
    /// typing.
    void setCaretPos(bool extend, int position);

    // Moving the caret. A move that finds no target leaves it where it is, but for those that say
    // otherwise. With `extend` the pivot stays, so that the move selects; a selection never leaves
    // its flow or static content.

    /// To the next or the previous stop; an object such as a graphic is passed whole. A caret in a
    /// flow goes from flow to flow, one in a static content stays there; in a table it follows the
    /// page, where the footer comes behind the body, and does not select on these jumps. Without
    /// `extend` a selection collapses to its end in that direction, which is the whole move. With
    /// `mergeBoundaries` two stops that only the edge of an inline lies between count as one. With
    /// `byWord` the move is jumpToPreviousWord() or jumpToNextWord(), but for the table's jumps
    /// and, to the right, the collapse. Ends a run of typing.
    void moveCaretLeft(bool extend, bool byWord, bool mergeBoundaries);
    void moveCaretRight(bool extend, bool byWord, bool mergeBoundaries);

    /// To the first or the last stop with text of the static content around the caret, or from
    /// anywhere else of the document's flows. Without such a stop there is no caret afterwards.
    /// While page masters are edited, the end is that of a static content only, and is selected up
    /// to. They end a run of typing.
    void moveCaretHome(bool extend);
    void moveCaretToEnd(bool extend);

    /// To the first stop of the first flow; without one there is no caret afterwards.
    void moveCaretToFirstFoFlow();
    /// The same, for a caret in a static content only.
    void resetCaretFromStaticContent();

    /// To the first stop in the first flow of a page sequence, repeat or inserted document, which
    /// are counted from 0; answers whether there is one.
    bool moveCaretToPageSequence(int index);
    /// `offset` units behind the start of that flow's content, or where that is inside markup to
    /// the nearest stop before; an offset below 1 is the flow's first stop. Answers false for a
    /// place outside the flow or every editable element.
    bool moveCaretToReference(int sequenceIndex, int offset);

    /// To the first side region, in the order of the page masters, that has a stop.
    void moveCaretToFirstStaticRegion();
    /// To the static content with that flow name in the page sequence with that index.
    void moveCaretToStaticRegion(const Core::String& flowName, int sequenceIndex);

    // What a host draws, and where a click on it leads to. Include the header of the result.

    /// The stop nearest to an offset on that side (view/StopSide.h), or with StopSide::Either on
    /// any; -1 if there is none, and outside the text.
    int getNearestStop(int position, StopSide side) const;
    /// The element whose tag holds the offset, or else the innermost around it, with its path
    /// (view/ElementPlace.h).
    ElementPlace getElementAt(int position) const;
    /// What is drawn from an offset on, in the order of the text, in at most so many pieces
    /// (view/Drawn.h). It begins with the piece that holds the offset, and goes on at the `end` of
    /// the last; none are left at the end of the text. It costs what it passes over, however long
    /// the text is; a text without markup comes in pieces of about 1000 units. What stands outside
    /// the flows and static contents shows nothing but its elements.
    std::vector<Drawn> getDrawn(int position, int count) const;
    /// The value that a property, given with or without "fo:", has in the element at the offset, as
    /// getElementAt() tells it, or with -1 in the one around the caret: its own, or one that a
    /// shorthand gives it, else an inherited one, else XSL's initial value. Empty where XSL leaves
    /// that to the formatter, as the font, and for a name that XSL does not know and the element
    /// does not have.
    ///
    /// Resolved are "inherit"; the shorthands of borders, padding, margins, background, font, white
    /// space, position, language and page breaks; the sides that are called before, after, start
    /// and end, for the writing modes lr-tb, rl-tb and tb-rl; a component as in
    /// "space-before.optimum"; the size of the font by em, percentages and words, of which "medium"
    /// is 12pt; and any other length in em, and percentages of line-height, by that size. The rest
    /// is as written: other percentages, which a layout knows, ex, the weights bolder and lighter,
    /// expressions and functions; and what XSL derives from other properties, as an indent from a
    /// margin, is not looked for.
    Core::String getComputedProperty(const Core::String& name, int position) const;
    /// All that a toolbar shows, in one call (view/EditingState.h).
    EditingState getEditingState() const;

    // Words. A word is a run of units that are no separators; a punctuation mark or an entity is a
    // word of its own. Words go on across the edges of inlines as far as the steps below tell, and
    // end at those of blocks.

    /// What stands between words: blanks, punctuation marks and U+00A0.
    static const Core::String wordSeparators;
    static bool isWordSeparator(wchar_t unit);

    /// To the start of the next word, over the edges of inlines around the caret; at any other tag,
    /// and directly behind a table, one move to the right. With `extend` the pivot stays. Ends a
    /// run of typing.
    void jumpToNextWord(bool extend);
    /// To the start of the word around or before the caret, in the same way; before a table one
    /// move to the left.
    void jumpToPreviousWord(bool extend);

    /// Where the word around or before the position begins: the stop to which a step by words to
    /// the left would lead, except that it stops before the start tag of an inline. The position
    /// itself where no word can be reached; -1 outside the text and at a table that opens a flow.
    int getPreviousWordPos(int position) const;
    /// The text from there up to but excluding the caret, markup included.
    Core::String getPreviousWord() const;

    // Units of text as a reader knows them

    /// What knows where characters, words and sentences end in all scripts; null, as at first, for
    /// rules of the document's own that know blanks and punctuation marks.
    void setTextSegmenter(const SmartPtr<TextSegmenter>& segmenter);
    /// Whether moves of the caret, Backspace and Delete take what a reader sees as one character as
    /// one: a letter with its accents, an emoji of several code points, a flag. Off at first; they
    /// then take one code point, as they always do without a segmenter.
    void setClusterSteps(bool on);
    bool hasClusterSteps() const;
    /// The unit of that kind that holds the position, or ends at it where none begins there: a
    /// character as a reader sees it, a word without the blanks behind it, a sentence with its
    /// punctuation, what a paragraph holds. Markup within is part of the range; none at its ends
    /// is, but for inlines in a paragraph. Nothing where the position is in no paragraph or, for a
    /// word, at none.
    std::optional<TextRange> getRangeAround(TextUnit unit, int position) const;

    // Finding and replacing. A search runs over the text between tags, in flows and static contents
    // alike, and goes on from the other end of the document. It is running from the first call on
    // until the host ends it: when the user changes the text, the caret or what is searched for.

    /// Selects the next match of `find`, which is compared as the markup has it, so that "&" is
    /// found as "&amp;", and answers its first offset: -1 when there is none, -2 when the running
    /// search has come round after at least one match. Then caret and selection stay, but for a
    /// match that this call replaced, whose replacement is selected.
    ///
    /// With `replace` a match that is selected is first replaced by the plain text `replacement`;
    /// without a selection the next match is replaced at once and the caret stands behind it. A
    /// selection of anything else is never replaced. One undo step; so replacing until the answer
    /// is negative replaces every match once.
    ///
    /// Case always counts, whatever `matchCase` says. `wholeWord` is meant for single characters: a
    /// match counts at the start of a stretch of text between tags, before white space. Going
    /// backward, the answer is the offset where the search started in its stretch, plus the index
    /// of the stretch's first match counted from the `>` before it; what is selected is then not
    /// the match, and nothing but the text itself is replaced.
    int findReplace(const Core::String& find, const Core::String& replacement, bool matchCase,
                    bool wholeWord, Direction direction, bool replace);
    /// Ends the running search.
    void resetfindReplaceStartPos();

    // Spelling. Dictionaries have names such as "en_US", and a list of them has ":" in between. A
    // spelling operation without a checker raises Core::NullPointerException and changes nothing;
    // what the checker raises passes through in the same way.

    void setSpellChecker(const SmartPtr<Drawing::SpellChecker>& checker);
    /// Selects the next word that no dictionary knows, at or behind the caret or, with `restart`,
    /// the start of the first flow. Null without one; the caret then stays, with `restart` at that
    /// start. The next call goes on behind the word. The dictionaries are those that the document
    /// names for the caret's place, else the given ones, else "en_US". Of each, the error holds the
    /// suggestions and then an empty text.
    SmartPtr<Drawing::SpellingError> getNextSpellingError(const Core::String& defaultDictionaries,
                                                          bool restart);
    /// The words from `start` up to but excluding `end` that no dictionary knows, in the order of
    /// the text, words that begin before it and go on in it included. Neither caret nor selection
    /// moves. The dictionaries are told by `start`, as for the caret above.
    std::vector<SmartPtr<Drawing::SpellingError>>
    getSpellingErrors(int start, int end, const Core::String& defaultDictionaries) const;
    /// The dictionaries that the root names; empty if it names none.
    Core::String getSpellingDictionaries() const;
    /// Lets the root name them. One undo step.
    void setSpellingDictionaries(const Core::String& dictionaries);
    /// Makes the checker load the root's dictionaries or, if it names none, the given ones. With
    /// none given, a root that names some gets "en_US" loaded.
    void syncSpellerMap(const Core::String& dictionaries);

    // Selecting

    bool hasSelectedText() const;
    /// Whether the offset lies from the selection's lower end through its upper end, both included.
    bool offsetIsInSelection(int offset) const;
    /// Collapses the selection onto the caret. Ends a run of typing.
    void resetSelection();
    /// Selects the element around the caret with its tags.
    void selectCurrentElement();
    /// Selects the element that the path names among those around the caret, without its closing
    /// tag.
    void selectElement(const Core::String& path);
    /// Extends the selection over the element whose start tag the caret is on. Where no start tag
    /// stands there is no caret afterwards.
    void selectElementStartingAtCaretPosition();
    /// Grows the selection outward: to the content of the element that the one around the caret
    /// stands in, as of the cell or the flow around a block, then with each further call to that of
    /// the next. The flow is the last.
    void selectParent();
    /// Lets the next selectParent() begin with the innermost element again.
    void resetSelectionOfElement();
    /// The selected text, plain or as well-formed markup; empty without a selection. In plain text
    /// entities stay as they are and each tag that breaks the line gives a line feed, also the next
    /// one behind a selection that ends in text: a word taken from a block ends with a line feed.
    Core::String getSelectionAs(TextFormat format) const;
    /// The text of the element that the path names. The caret comes back, an earlier selection is
    /// lost, and the monitor hears of the caret on its way.
    Core::String getSelectionAs(TextFormat format, const Core::String& path);

    // Typing. A text that would break the markup is taken back whole, also from the history.

    /// Inserts text at the caret in the place of what is selected: plain text, which is escaped and
    /// whose control characters but for the tab, line feeds too, become blanks, or markup. A run of
    /// plain insertions is one undo step. With `selectInserted` it is selected. False where nothing
    /// can go: no caret, a list label, an empty text; and plain text only goes where the caret can
    /// stand.
    bool insertText(const Core::String& text, bool isXml, bool selectInserted);
    /// Inserts text with formatting: an inline of its own or, in an element that holds only its
    /// placeholder, properties of that element. Alignment, which no inline can have, goes to the
    /// block around. One undo step.
    void insertText(const Core::String& text, const PropertyCollection& properties, bool isXml,
                    bool selectInserted);
    /// Moves the caret and inserts there, as one undo step. False where the caret cannot stand.
    bool insertTextAtPosition(int position, const Core::String& text, bool isXml,
                              bool selectInserted);
    /// Inserts "<qf:tab/>" in an editable element.
    void insertTab();
    /// Replaces the markup from `start` through `end`, both included. One undo step.
    void replaceXmlText(int start, int end, const Core::String& xml);
    /// The markup pretty-printed for insertion at the position: each tag on a line of its own,
    /// indented by as many tabs as elements are around it.
    Core::String indentXmlText(const Core::String& xml, int position) const;

    // The clipboard, as people know it. What is pasted takes the place of what is selected and is
    // one undo step; the caret stands behind it. False where nothing can go: no caret, a list
    // label, nothing to paste, or a place for parts of a line only where more is pasted.

    /// Pastes markup. Parts of a line, and a single paragraph, join the line at the caret. Of
    /// several blocks the first paragraph joins what stands before the caret and the last one what
    /// stands behind it, each under the block that is there; lists, tables and paragraphs between
    /// them stand as they are. Where nothing stands on that side the pasted paragraph keeps its own
    /// properties. Markup that is not well formed is refused.
    bool pasteMarkup(const Core::String& xml);
    /// Pastes plain text, each line of it a paragraph and each tab a "qf:tab".
    bool pasteText(const Core::String& text);
    /// Pastes HTML, as browsers and office programs give it, by pasteMarkup(): paragraphs, headings
    /// (which keep their level as the property role), lists, tables, links and the formatting of
    /// text that stands in the HTML itself. Images, form controls, scripts and whatever acts are
    /// left out. Raises Core::NullPointerException without a parser, and what the parser raises;
    /// then nothing has changed.
    bool pasteHtml(const Core::String& html);
    void setHtmlParser(const SmartPtr<HtmlParser>& parser);
    /// The selected text as a reader sees it: characters and no entities, a line feed between
    /// paragraphs and lines and none at the end, labels before the items of lists, and the cells of
    /// a row with tabs between them. Empty without a selection.
    Core::String getSelectionAsText() const;
    /// The selected content as HTML that another program pastes: p, h1 to h6, b, i, u, s, sup, sub,
    /// a, br, pre, ul, ol, table, and span with a style for colours and fonts. Empty without a
    /// selection.
    Core::String getSelectionAsHtml() const;

    // Deleting. Tags are never left unmatched: what a range holds whole goes, and of an element
    // that it cuts only content goes. What is emptied keeps a place for the caret.

    /// Backspace or, with `forward`, Delete, of a unit or with `wholeWord` a word. What is selected
    /// goes first; a word then follows it. At the start of a block Backspace joins it to the block
    /// before, at its end Delete joins the block behind; an object beside the caret goes whole.
    /// Without a selection nothing happens where the caret cannot stand; nor outside the flows and
    /// static contents, in a list label, or where a word ends in another table cell. A comment,
    /// CDATA section or processing instruction that Backspace removes does not come back by undo.
    /// One undo step, even where there was nothing to remove.
    void erase(bool forward, bool wholeWord);
    /// Removes the nearest element around the caret that has the name, with its content, if it lies
    /// in a flow or static content; a sequence of conditions goes with its last one. What it leaves
    /// empty keeps a place for the caret. One undo step.
    void deleteParent(const Core::String& elementName);
    /// Deletes from `from` up to but excluding `to`, whatever is selected, and puts the caret to
    /// `from`; with `keepSelection` the selection comes back. A `from` of -1 clears the caret and
    /// deletes nothing. Where both are the same it acts as Delete there. Refused where a position
    /// lies inside markup or `to` stands before `from`. One undo step.
    void deleteContentAtPosition(bool keepSelection, int from, int to);
    /// Moves a position back over the indentation before it: tabs, and then one line feed.
    void deleteSpacesBetweenTags(int& position) const;
    /// Whether the caret lies in a fo:block-container, with both ends of the selection, if any,
    /// valid.
    bool entireSelectionisInTheSameFloatingRegion() const;

    // Breaks

    /// Enter, Shift+Enter and their kin, in the place of what is selected. A hard break splits the
    /// block around the caret in two that have the same attributes, and the inlines around the
    /// caret with it; a soft break is an empty block. At the very start of a table or a form Enter
    /// makes a line before it, at its very end a line behind it. A break of a page or a column is a
    /// hard break whose new block begins there or, with `after`, ends there; where Enter puts a
    /// block around what stood in none, the property is not set. A line that a break leaves empty
    /// keeps a place for the caret. Refused in a list label and where the caret cannot stand. One
    /// undo step.
    void insertBreak(BreakType type, bool after);
    /// Enter in a list.
    void insertListBreak();

    // Formatting. Properties are the attributes of an element, named with a prefix as in
    // "fo:font-weight"; one without a prefix is in the element's own, so that "color" on a block is
    // read as "fo:color". Values are those of the markup, entities included. What is written with
    // the prefixes fo, xsl, qf and qfd declares them on the root where they are not. A property
    // that would break the markup is refused. Each command is one undo step.
    //
    // A path names one of the elements around the caret or, when an element is selected with its
    // start tag, that element; an empty path means the innermost one,
    // which beside a table is the flow or a cell.

    /// The properties of the element that the path names; none where it names no element.
    PropertyCollection getProperties(const Core::String& path) const;
    /// The properties of the nearest element of that name: the one whose start tag is at the
    /// position, else the innermost around it.
    PropertyCollection getProperties(const Core::String& elementName, int position) const;
    /// The properties of each element of that name that begins in the selection, in the order of
    /// the text.
    Core::Vector<PropertyCollection> getPropertiesList(const Core::String& elementName) const;

    /// Formats what is selected, or gives the properties to one element; others that it has stay.
    /// With an empty path and a selection every run of text gets them, as the whole of an inline on
    /// that inline and else in an inline of its own; alignment, which no inline can have, goes to
    /// the blocks around. Otherwise the element that the path names gets them.
    void setProperties(const PropertyCollection& properties, const Core::String& path);
    /// Gives them to the nearest element of that name, chosen as getProperties() does.
    void setProperties(const PropertyCollection& properties, const Core::String& elementName,
                       int position);
    /// setProperties() with one property.
    void setProperty(const EditableProperty& property, const Core::String& path);

    /// Removes all attributes but the declarations of namespaces from the element around the caret
    /// that the path names; where it names none, from the one whose start tag begins the selection,
    /// if any. With an empty path and a selection, from every editable element directly around
    /// selected text.
    void removeProperties(const Core::String& path);

    /// Sets the property fo:class of the selected element, if the selection begins at its start
    /// tag; else of the nearest element of that name, whatever its prefix, around the caret or the
    /// start of the selection. An empty name means the innermost element there.
    void applyStyleOnElement(const Core::String& className, const Core::String& elementName);
    /// What applyStyleOnElement() set for the element that it would choose, and that element's name
    /// without prefix; both empty without one. An empty name asks for the innermost element.
    void getCrtElementClassName(Core::String& className, Core::String& elementName) const;

    /// The value that the nearest of the elements around the position, or with -1 the caret, has
    /// for a property; empty where none has it.
    Core::String getInheritablePropertyValueAtPosition(const Core::String& name,
                                                       int position) const;
    /// Reads a property of the nearest element of that name around the caret; false, with `value`
    /// as it was, where there is none.
    bool getParentProperty(const Core::String& elementName, const Core::String& property,
                           Core::String& value) const;
    /// Writes it; without such an element nothing happens.
    void setParentProperty(const Core::String& elementName, const Core::String& property,
                           const Core::String& value);

    // Objects: what a host shows as a unit, such as a chart, a repeated or conditional section, a
    // floating region or another document

    /// Deletes the element that the path names among those around the caret or, if none of them has
    /// it, the selected element, if it lies in a flow or static content; a sequence of conditions
    /// goes with its last one. The caret goes to the next stop of the same flow or static content,
    /// else to the previous. A `container` that is not empty names the element around that the
    /// caret is to stay in instead. Where there is no such stop an empty block is made to stand in
    /// or, with `inlineContext`, an empty inline. One undo step.
    void deleteObject(const Core::String& path, const Core::String& container, bool inlineContext);
    /// Deletes the "qfd:subdocument-content" whose tag is at the position, and with it an element
    /// around without attributes that holds nothing else, but never a table cell or a part of a
    /// list item; any other tag at the position stays. What is left empty gets no placeholder. The
    /// records stand alone: bracket the call with an EditActionGroup for one undo step.
    void removeComponent(int position);
    /// Delete the nearest element of that kind around the caret, as deleteParent() does.
    void deleteFloatingRegion();
    void deleteCurrentConditionalBlock();
    void deleteConditionalBlockSequence();
    void deleteCurrentConditionalInline();
    void deleteConditionalInlineSequence();
    void deleteRepeatingSection();
    /// The index, from 0, of the section around the position among those of its sequence of
    /// conditions. Names are given without prefix, as "conditional-block-sequence" and
    /// "conditional-block". 0 between sections, and outside of such a sequence.
    int getConditionIndex(int position, const Core::String& sequenceName,
                          const Core::String& sectionName) const;

    /// Whether an element of that name is written once for each node of the data.
    static bool isRepeatingElement(const Core::String& name);
    /// The markup of the element that the path names among those around the caret; empty without
    /// one. Where the selection begins on the element itself, it comes in a block.
    Core::String getComponentContentFromPath(const Core::String& path) const;
    /// Whether the list would keep an item without the one that the path names among those around
    /// the caret or, with an empty path, the nearest.
    bool canDeleteListItem(const Core::String& path) const;

    /// Inserts a stored text at the caret. What is selected stays and is no longer selected. Text
    /// behind "xml:" is markup. In any other, each "\r" or "\r\n" is a soft break and blanks in a
    /// row all show. With `replaceWord` it takes the place of the word before the caret. One undo
    /// step, in which a text that would break the markup is taken back whole.
    void insertAutotext(const Core::String& text, bool replaceWord);

    // Views: the operations on one subject, which act on this document

    ListBuffer getListBuffer();
    FormBuffer getFormBuffer();

    // The modes of editing. A caret that stands elsewhere already stays until it is next set.

    /// While set, the caret may only be put into static content, and no flow is edited.
    void setPageMasterEditingMode(bool on);
    bool getPageMasterEditingMode() const;
    /// While set, the caret is put nowhere: whatever sets it leaves none.
    void setEditingDummyPage(bool on);
    bool isEditingDummyPage() const;

    // The initial position, which travels in the document as the id of the block or inline where
    // reading should start

    /// Stores the block or inline around the caret, or with `save` false forgets what is stored.
    /// One undo step.
    void saveInitialPosition(bool save);
    /// Puts the caret to the stored place. The search starts at the caret, so call it right after
    /// loading.
    void loadInitialPosition();

    // Settings of the document: the elements qf:stylesheet, qf:info and qf:pdf-page-settings, and
    // an attribute of the root. What is not there has no attributes, and setting or removing it
    // does nothing. Each change is one undo step and refused where it would break the markup.

    bool hasStyleSheet() const;
    /// The path that the element has, whether it is there or not.
    Core::String getStylesheetPath() const;
    /// The start tag; empty if there is none.
    Core::String getStyleSheetString() const;
    PropertyCollection getStyleSheetAttributes() const;
    /// Gives the element these attributes and no others but its declarations of namespaces.
    void setStyleSheetProperties(const PropertyCollection& properties);
    /// Inserts markup directly behind the root's start tag, whatever is there already.
    void insertStyleSheet(const Core::String& xml);
    /// Removes the element, with what it holds.
    void removeStyleSheet();

    /// The same for the document information.
    bool hasDocumentInformation() const;
    PropertyCollection getDocumentInformationAttributes() const;
    void setDocumentInformationProperties(const PropertyCollection& properties);
    void insertDocumentInformation(const Core::String& xml);
    void removeDocumentInformation();

    /// Default where nothing is set, and where it is no known level.
    Xml::PDFConformance getPDFCompliance() const;
    /// Sets the level by its name, "Default", "PDF/X-1a:2003", "PDF/A-1a:2005", "PDF/A-1b:2005" or
    /// "PDF508" in any case; any other name sets Default. The element is made if it is not there.
    void setPDFCompliance(const Core::String& level);

    /// Whether variable data printing is on.
    bool vdpIsSet() const;
    void enableDisableVdp();

    // The place of the caret

    /// The name of the flow or else of the static content around the caret.
    Core::String getCurrentFlowName() const;
    /// What stands in the flow around the caret, from its first tag through its last; empty outside
    /// a flow.
    Core::String getCurrentFlowContent() const;
    /// How many units the caret stands behind the start tag of its flow; -1 outside a flow. With
    /// the index of the page sequence moveCaretToReference() takes it back; in a repeat that holds
    /// several page sequences, from the flow of the first only.
    int getFlowReferenceToCurrentPos() const;
    /// Whether the position lies in a static content, of that flow name if it is not empty.
    bool isInFoStaticContent(int position, const Core::String& flowName) const;

    /// The markup of the element that the path names among those around the caret or, if none of
    /// them has it, of the selected element; empty without one.
    Core::String getCrtObjectContent(const Core::String& path) const;
    /// The same for the nearest element of that name around the caret, or for the outermost.
    Core::String getCrtObjectContent(const Core::String& name, bool outermost) const;

    /// The id of the editable element that the caret stands in directly; empty if that has none or
    /// is not editable.
    Core::String getIdForCurrentPos() const;
    /// Sets it, and answers whether that was done. One undo step.
    bool setIdForCurrentPos(const Core::String& id);

    // What the document uses

    /// Where the documents lie that it takes content from.
    std::set<Core::String> getUsedComponents() const;
    /// The attributes of each parameter of media objects, or of components, in the selection.
    Core::Vector<PropertyCollection> getMediaObjectParams() const;
    Core::Vector<PropertyCollection> getComponentParams() const;
    /// The elements with an id from the page sequences on, in the order of the text.
    std::vector<ElementInfo> getElementsWithIdInfo() const;

    // Page sequences: fo:page-sequence, qfd:page-sequence-repeat and qf:insert-document. Those that
    // are children of the root are counted together from 0; a repeat counts as one with all that
    // stands in it.

    /// The next one behind the position, be it counted or not; -1 if there is none.
    int getNextPageSeq(int position) const;
    /// The one with that index; -1 if there are fewer.
    int getPageSequencePosition(int index) const;
    /// The index of the last counted one that begins at or before the position; -1 if none does, or
    /// outside the root element.
    int getPageSequenceIdxFromPos(int position) const;
    /// The fo:page-sequence or else the qfd:page-sequence-repeat around the position; -1 in
    /// neither.
    int getPageSeqPosFrom(int position) const;
    /// The index of the one around the caret, outside of these -1.
    int getCurrentPageSequenceIdx() const;
    /// The first fo:flow in the one with that index, with its tags; empty without one.
    Core::String getFirstFlowFromPageSequence(int index) const;
    /// Puts the markup in the place of what stands between its tags. One undo step. Nothing happens
    /// where there is no such sequence, or where it is self-closing.
    void replacePageSequence(int index, const Core::String& xml);
    /// Whether the first qf:printing-options behind the start of the sequence around the caret asks
    /// for duplex printing; false in no sequence.
    bool pageSequenceHasPrintingOptionsOn() const;
    /// The same for the first one in the sequence with that index.
    bool pageSequenceHasPrintingOptionsOn(int index) const;

    // Simple page masters as they stand in the text. A name is plain text; one that is empty or
    // unknown gives -1 or an empty text, and nothing happens.

    int getSimplePageMasterPosition(const Core::String& name) const;
    /// The whole element.
    Core::String getSimplePageMaster(const Core::String& name) const;
    /// Puts the markup in its place, which must be one fo:simple-page-master of that name and
    /// nothing else. One undo step.
    void replaceSimplePageMaster(const Core::String& name, const Core::String& markup);
    /// The flow name of the master's body.
    Core::String getRegionBodyNameForPageMaster(const Core::String& name) const;

    // Pages on which headers, footers and side regions are edited. An index that names no page
    // sequence or repeat, or one that is self-closing, gives an empty text, and nothing happens.

    /// The page sequence as one of the master, with a locked flow of that name, which tells what is
    /// edited, in the place of its last; the other flows are left out.
    Core::String getPageSequenceForEditing(int index, const Core::String& master,
                                           const Core::String& flowName) const;
    /// What stands in the page sequence, with the markup in the place of its last flow; the others
    /// are left out.
    Core::String getPageSequenceContentWithReplacedFoFlow(int index,
                                                          const Core::String& flow) const;
    /// Removes the static contents, with the lines that these leave empty. One undo step.
    void deleteStaticContentsFromPageSequence(int index);
    /// Puts the markup in the place of all static contents, before the flow, and without one behind
    /// the start tag and the printing options. One undo step, refused where it would break the
    /// markup.
    void replaceStaticContentsFromPageSeq(int index, const Core::String& markup);

    // Tables. Rows, columns and cells are numbered from 0. A logical column counts the columns that
    // spans take; the index of a cell does not. A position in a nested table counts for the outer
    // one, whose `<` `table` is, as if it stood in the cell that holds the nested table; a `table`
    // of -1 is the innermost around the position.

    bool caretIsInsideTable() const;
    /// Whether the selection begins at a table's `<` and ends directly behind that table.
    bool hasSelectedTable() const;
    /// Whether something is selected and not both of its ends lie in the same table, which is true
    /// also where neither lies in one.
    bool selectionCrossTable() const;
    /// Selects the table, or other element, that a path names among those around the caret; with an
    /// empty path the table around the caret, where no table is selected already. Ends a run of
    /// typing.
    void selectTable(const Core::String& path);

    /// Tab: the caret goes to the first stop of the next cell as a reader counts, who meets the
    /// footer behind the body. From the last cell a row is added below, with `addRow`, and the
    /// caret goes to its first cell; one undo step. Nothing happens outside a cell, and in the last
    /// one without `addRow`. The first argument has no effect. Ends a run of typing.
    void moveCaretNextCell(bool ignored, bool addRow);
    /// Shift+Tab: the same back to the cell before; nothing happens in the first one.
    void moveCaretPrevCell(bool ignored);
    /// The `<` of the cell that Tab and Shift+Tab reach from the cell whose `<` is given, with
    /// `sameRow` only within its row; -1 if there is none.
    int getNextCellPosition(int cell, bool sameRow) const;
    int getPrevCellPosition(int cell, bool sameRow) const;

    /// The row group around the position; None where no cell is.
    TableRowGroupType getTableRowGroupTypeFrom(int position, int table) const;
    /// The `<` of the table's first element of that group, or for None of the body; -1 without one.
    int getTableRowGroupPosition(int table, TableRowGroupType group) const;
    /// The next row, be it repeated, behind the position; this may leave the group.
    int getNextRowElement(int position) const;
    /// The `<` of a row of the group element; -1 if it has not so many.
    int getRowPosFromTableRowGroup(int groupElement, int row) const;
    /// The name of the innermost row around the position, with prefix; empty if there is none.
    Core::String getRowTagNameForRowContaining(int position) const;
    /// The row of the cell around the position, counted in its group, which is told too. Cells that
    /// stand in a header or footer directly are one row. -1 where no row is.
    int getTableRowNumberFrom(int position, int table, TableRowGroupType& group) const;
    /// The index in its row of the cell around the position; -1 where none is.
    int getCellNumberOnRow(int position, int table) const;
    /// The `<` of the cell that begins at a logical coordinate; -1 where none begins. `tableBuffer`
    /// knows the table as it stands; the columns that are taken from above are those of the row
    /// group of its caret, up to but excluding `rows` and `columns`.
    int getCellPositionInTable(int table, int row, int column, TableRowGroupType group, int rows,
                               int columns, EditableTableBuffer* tableBuffer) const;
    /// The coordinates, row and column, of the row group of that buffer's caret that are taken by a
    /// cell which begins elsewhere, as far as rows and columns go.
    std::map<std::pair<int, int>, bool> buildSpanMatrix(int table, int rows, int columns,
                                                        EditableTableBuffer* tableBuffer) const;
    /// What the cell says that it spans; 1 where it says nothing that can be read.
    int getColSpanFromCell(int cell) const;
    int getRowSpanFromCell(int cell) const;

    /// The table around a position, or with -1 around the caret, to be edited as a tree. If the
    /// caret is not in the table at a position it goes to the first stop there. Where no table is,
    /// it is the one that is selected. The buffer is kept until another table is asked for,
    /// and given again while that table is where it was. Null where no table is. Raises an
    /// Xml::ParseException where the table is not well formed.
    SmartPtr<EditableTableBuffer> getEditableTableBuffer(int position);
    /// Reads the table around the caret anew; outside of tables the kept one goes.
    void updateTableBufferCache();
    /// Whether no table is kept.
    bool tableBufferCacheNull() const;
    /// Whether the table around the caret begins where the kept one does.
    bool caretIsInsideSameTable() const;

    // Bring the kept table up to date, from the host's monitor. The one around the caret takes its
    // place; a caret outside of tables has none kept.

    void updateCacheOnBufferChange();
    /// The cell that is kept with the table becomes the caret's, and is all that is selected.
    void updateCacheOnCaretChange();
    /// The cells that are kept as selected become those up to the pivot's.
    void updateCacheOnSelectionChange();

protected:
    // Replay

    /// Performs one record of the history.
    void executeAction(const EditAction& action);

    // The caret

    /// Whether the caret may stand there: in an editable element, or directly before or behind a
    /// table.
    bool canHoldCaret(int position) const;
    bool isEditableElementAtPosition(int position) const;
    bool inEditableElement(int position) const;
    bool elementIsEditable(int position) const;
    bool elementIsEditable(const Core::String& name) const;

    /// The next or the previous stop: the nearest offset that can hold the caret and is not skipped
    /// because nothing shows there. -1 if there is none or the position lies outside the text. With
    /// `wrap` the walk goes on from the other end of the document, up to where it began. With
    /// `mergeBoundaries` two stops that only the edge of an inline lies between count as one.
    int getNextEditablePositionInFo(int position, bool wrap, bool mergeBoundaries) const;
    int getPreviousEditablePositionInFo(int position, bool wrap, bool mergeBoundaries) const;
    /// The same without wrapping and merging.
    int getNextValidCaretPos(int position) const;
    int getPreviousValidCaretPos(int position) const;
    /// The position if it lies in a flow, else the nearest stop in that direction that does; -1 if
    /// there is none.
    int getNextPositionAdjustedToFoFlow(int position) const;
    int getPreviousPositionAdjustedToFoFlow(int position, bool mergeBoundaries) const;

    /// Moves the position over what is skipped, up to the first offset that is not. Answers whether
    /// another element was met; with `crossElements` false the step into it is not taken.
    bool skipSpacesBackwards(int& position, bool crossElements) const;
    bool skipSpacesFromPos(int& position, bool crossElements) const;

    /// Whether the element's tags hold nothing but white space and editable elements of which the
    /// same is true. A placeholder is something.
    bool elementContainsJustWhitespacesOrVoid(int element) const;
    /// Whether the caret is at the first stop of its current element or, with `forward`, at the
    /// last.
    bool isBoudaryEditablePosition(bool forward) const;

    /// Moves a caret that stands where none can to the next stop, else to the previous.
    void adjustCaretToAnEditablePosition();

    /// The first stop in a static content of the page sequence that has that flow name; -1 if none.
    int getFirstEditPosInStaticContent(const Core::String& flowName, int generator) const;
    /// The name of the first side region of a page master or, of one that refers to others, of the
    /// first of these; empty if it has none.
    Core::String getFirstPageRegionNameFromMaster(const Core::String& masterName) const;

    /// Sets the caret, with the checks that the editing modes and the selection ask for.
    void setCaret(bool extend, int position);

    // The selection

    int getSelectionStartIndex() const;
    /// The last selected offset; without a selection the caret.
    int getSelectionEndIndex() const;
    bool isElementSelected(const Core::String& name) const;
    /// Whether the range, its end excluded, is all that stands between an element's tags.
    bool selectionIsEntireElementContent(int start, int end) const;
    /// The path of the tag at the position, its own name last.
    Core::String getSelectedElementPath(int position) const;
    Core::String getSelectionAsPlainText() const;
    Core::String getSelectionAsNativeText() const;
    /// The text of a range without its tags; `end` is excluded.
    Core::String getPlainText(int start, int end) const;

    // Finding and spelling

    /// What findReplace() would select next. The second and third argument have no effect.
    int findNextString(const Core::String& find, int from, bool matchCase, bool wholeWord,
                       Direction direction) const;
    /// The first unit of the word around the position; the position itself, or from a tag the next
    /// stop behind it, where there is none. -1 behind the last stop. Words, here and below, are
    /// runs of `wordChars` that go on across the edges of inlines.
    int getWordStartPosition(int position, const Core::String& wordChars) const;
    /// The first offset at or behind the position that is in no word.
    int getWordEndPosition(int position, const Core::String& wordChars) const;
    /// The first offset at or behind the position that is in a word; -1 if there is none.
    int getNextWordStartPosition(int position, const Core::String& wordChars) const;

    // Typing

    /// What was inserted, the end excluded.
    struct InsertedRange {
        int start;
        int end;
    };

    InsertedRange insertTextAtEditablePosition(int position, Core::String& text);
    InsertedRange insertXmlTextAtEditablePosition(int position, const Core::String& xml);
    /// A blank typed at the caret, kept visible: blanks alternate with non-breaking spaces.
    InsertedRange handleInsertedSpace(const Core::String& text);
    /// Removes the placeholder of an element that something is being typed into.
    void handleElementsContainingJustNonBreakingSpaces(int position);

    // Deleting

    /// What erase() does outside lists. The last argument is ignored.
    void eraseTextFromBuffer(bool forward, bool wholeWord, bool);
    /// Delete one unit before or behind the position, which becomes where the caret belongs. They
    /// record what they do.
    void deleteBackwards(int& caret);
    void deleteForward(int& caret);
    /// Moves the caret off a place that a deletion left without a stop.
    void ensureValidPositionAfterDeletion();
    /// Whether the element is the last block in its flow.
    bool elementIsLastBlockInFlow(int element) const;
    /// Removes the selection or, without one, the unit at the caret. With `listHandled` lists are
    /// treated as any other element. The answer is empty: what was removed goes to the history
    /// piece by piece.
    Core::String deleteSelection(bool listHandled);
    /// The same for the range from `start` up to but excluding `end`. Afterwards `start` is where
    /// the caret belongs and `end` where the text behind the range begins.
    Core::String deleteSelectedXmlText(int& start, int& end, bool listHandled);

    /// Puts a placeholder into the element at the position if nothing shows in it. With
    /// `removeEmptyInlines` an inline goes instead, and the same is asked of its parent. Answers
    /// whether the text changed.
    bool handleElementsContainingJustWhiteSpaces(int position, bool removeEmptyInlines);
    /// Whether the element has but one stop before its end.
    bool editableElementContainsJustOneMoreChar(int element) const;
    /// Whether a block begins at the position that stands directly in a block.
    bool imbricatedBlocksContext(int position) const;
    /// Whether one placeholder touches the position and is all that stands between two line breaks.
    /// `isCharacter` tells that it is U+00A0 and no entity, `follows` that it stands at the
    /// position and not before; otherwise they mean nothing.
    bool singleNbspBetweenLineBreakTags(int position, bool& isCharacter, bool& follows) const;

    // Breaks

    /// A break at the caret, hard or soft, in the place of what is selected. One undo step.
    void insertLineBreak(bool hard);
    /// A hard break right at the caret, whatever table or form is around it. Answers the text that
    /// splits the block; empty where none was split.
    Core::String insertHardBreak();
    void insertSoftBreak();

    // Attributes as properties

    /// The attributes of the tag at the position; one without a prefix gets its element's.
    PropertyCollection getPropertiesFromElementAt(int element) const;
    /// Merges the properties into the tag's attributes, new values winning, and declares what
    /// namespaces they need on the root. Answers by how much the text behind the tag moved. One
    /// undo step.
    int setPropertiesForElementAt(int element, PropertyCollection properties);
    /// Removes all attributes; answers their text. One undo step.
    Core::String clearPropertiesForElementAt(int element);

    /// The names of what cannot stand on an inline and goes to the block around it.
    static const Core::StringArray nonInlineProperties;
    static bool isNonInlineProperty(const EditableProperty& property);
    /// Takes what cannot stand on an inline out of the collection and answers it.
    static PropertyCollection getAndRemoveNonInlineProperties(PropertyCollection& properties);
    /// Formats the text from `from` up to but excluding `to`, as setProperties() does with what is
    /// selected. One undo step.
    void formatInline(int from, int to, PropertyCollection properties);

    /// A face on a document that is there already.
    explicit EditableDocumentBuffer(const std::shared_ptr<Document>& document);

private:
    friend class Document;

    std::shared_ptr<Document> document_;
};
