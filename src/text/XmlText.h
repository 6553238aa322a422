#pragma once

#include "foundation/String.h"
#include "foundation/Vector.h"
#include "text/Ancestors.h"
#include "text/ClosingTags.h"
#include "text/KnownStretch.h"
#include "text/Prolog.h"
#include "text/RootEdges.h"
#include "text/SpaceProperties.h"
#include "text/StoredTags.h"
#include "text/TextLog.h"
#include "text/UnitMemo.h"
#include "text/XmlElementType.h"
#include "text/XmlScan.h"
#include "text/store/TextStore.h"
#include "text/torn/ScannedTags.h"

#include <memory>
#include <optional>
#include <span>
#include <type_traits>
#include <vector>

/// The text of one document, which it alone owns and stores, and the answers to where things are in
/// it. No tree is built: each question is answered by scanning from a given offset. Above it nobody
/// sees the document as one piece of memory.
///
/// Positions count 16-bit code units and are valid from 0 to length - 1; -1 means no position. A
/// question that finds nothing, or is given an invalid position, answers -1, an empty text or
/// false, and never throws.
class XmlText {
public:
    using View = XmlScan::Text;
    using Source = XmlScan::Source;

    XmlText() = default;
    XmlText(const XmlText&) = delete;
    XmlText& operator=(const XmlText&) = delete;
    XmlText(XmlText&&) = default;
    XmlText& operator=(XmlText&&) = default;

    // The units

    int length() const { return text_.length(); }
    bool isValid(int position) const { return XmlScan::isValid(all(), position); }
    /// The unit at a position that is known to be valid.
    wchar_t unitAt(int position) const { return XmlScan::unitAt(all(), position); }
    /// The units from `start` up to but excluding `end`, both within the text; until the next
    /// change.
    View view(int start, int end) const { return XmlScan::slice(all(), start, end); }
    /// A copy of the same.
    Core::String slice(int start, int end) const { return Core::String(view(start, end)); }
    /// The whole text, which costs nothing: it stands for the store as it is now.
    Core::String content() const { return contentOf(text_); }
    /// Calls `visit` with one stretch after another of all the text. None ends within a pair of
    /// surrogates.
    template <typename Visit>
    void forEachStretch(Visit visit) const {
        for (int start = 0, end = 0; start < length(); start = end) {
            end = endOfStretch(start);
            visit(view(start, end));
        }
    }

    // Changes

    /// Inserts before a position that may be the length of the text.
    void insert(int position, const Core::String& xml);
    /// Removes from `start` up to but excluding `end`, both within the text; answers what went.
    Core::String erase(int start, int end);
    /// Puts other units in the place of `count` from `start` on, all within the text.
    void replace(int start, int count, std::wstring_view with);
    /// Takes another text in the place of all.
    void assign(const Core::String& content);

    // Versions. A change that raises has not happened.

    /// Another number after each change, that of the root's name included.
    unsigned version() const { return version_; }

    /// Marks the text as it is now. The mark must not outlive the text.
    TextMark mark() const;
    /// What has changed since the mark, as one range that holds all changes.
    TextChange changeSince(const TextMark& mark) const;
    /// What stood in the place of such a range, as long as the mark is there.
    static View oldText(const TextMark& mark, const TextChange& change);
    /// The whole text as it was, which costs as little as content().
    static Core::String contentAt(const TextMark& mark) { return contentOf(mark.text()); }
    /// Whether the text is what it was.
    bool isAsAt(const TextMark& mark) const;
    /// Whether the elements of that name hold what they held.
    bool keepsContentOf(View name, const TextMark& mark) const;
    /// Brings back the text as it was. This needs no memory, for it may be want of memory that is
    /// being taken back.
    void goBackTo(const TextMark& mark) noexcept;

    /// Whether all markup is read the same from both ends of the text, as it is in nearly every
    /// one.
    bool isRegular() const { return text_.isRegular(); }
    /// Whether the text is known to be well formed; each change forgets that.
    bool isKnownWhole() const { return isKnownWhole_; }
    void noteWhole() const { isKnownWhole_ = true; }

    /// Names the root element, with prefix. Walks that climb stop there.
    void setRootName(const Core::String& name) {
        rootName_ = name;
        ++version_;
    }
    const Core::String& rootName() const { return rootName_; }

    // Searching. The first match at or after `start`, or the last at or before it; -1 if none.

    int find(wchar_t unit, int start) const { return XmlScan::find(all(), unit, start); }
    int find(View what, int start) const { return XmlScan::find(all(), what, start); }
    int rFind(wchar_t unit, int start) const { return XmlScan::rFind(all(), unit, start); }
    int rFind(View what, int start) const { return XmlScan::rFind(all(), what, start); }
    /// Whether `what` stands at a position, which may be any number.
    bool standsAt(View what, int position) const {
        return XmlScan::standsAt(all(), what, position);
    }

    // What stands at a position

    /// On `<`, of whatever kind of markup.
    bool onTagStart(int position) const { return XmlScan::onTagStart(all(), position); }
    bool commentAt(int position) const { return XmlScan::commentAt(all(), position); }
    bool cdataAt(int position) const { return XmlScan::cdataAt(all(), position); }
    bool instructionAt(int position) const { return XmlScan::instructionAt(all(), position); }
    bool documentTypeAt(int position) const { return XmlScan::documentTypeAt(all(), position); }
    /// A comment, CDATA section or processing instruction.
    bool ignoredAt(int position) const { return XmlScan::ignoredAt(all(), position); }
    bool selfClosingAt(int position) const {
        return askTags(position, [=](auto&& tags) { return tags.selfClosingAt(position); });
    }
    bool closingAt(int position) const { return XmlScan::closingAt(all(), position); }
    /// A start tag that has a closing tag of its own.
    bool openingAt(int position) const;
    /// Whether the tag at the position, or from inside text the next tag, is a closing tag.
    bool closingTagFollows(int position) const;

    XmlElementType kindBeginningAt(int position) const;
    /// The kind of what ends with the `>` at the position.
    XmlElementType kindEndingAt(int position) const;
    /// The first offset of the markup of that kind that holds the position.
    int kindStart(XmlElementType kind, int position) const;
    /// The offset just after the markup of that kind that begins at the position.
    int kindEnd(XmlElementType kind, int position) const;

    bool isBeforeTable(int position) const;
    /// Directly behind "</fo:table>".
    bool isBehindTable(int position) const;

    // Units and tags in the order of the text

    /// One step over a unit: a character, an entity, a tag, a comment, a section, an instruction.
    int next(int position) const;
    int previous(int position) const;
    /// Where the unit that holds a valid position begins.
    int unitStart(int position) const;
    /// The `<` of the markup that holds the position and begins before it; -1 where text stands or
    /// markup begins.
    int markupAround(int position) const;
    /// The last unit at or before a valid position that would end the name of an entity; -1 if
    /// none.
    int nameEndBefore(int position) const { return nameEnds_.last(all(), position); }
    /// The first offset at or after the position that is no white space.
    int skipSpaces(int position) const { return XmlScan::skipSpaces(all(), position); }
    /// The length of the placeholder, entity or character, that stands there; 0 if none does.
    int placeholderLength(int position) const {
        return XmlScan::placeholderLength(all(), position);
    }

    /// The tag at or after the position; never a comment, CDATA section or instruction.
    int nextTag(int position) const { return nextTagOf(MarkKinds::tagStarts(), position); }
    /// The last tag whose `>` stands at or before the position; instructions included.
    int previousTag(int position) const {
        return previousTagOf(MarkKinds::tagStarts() | MarkKinds{MarkKind::InstructionStart},
                             position);
    }
    /// The same of those of some kinds; tags of other kinds are passed where that is quicker.
    int nextTagOf(MarkKinds kinds, int position) const {
        return askTags(position, [=](auto&& tags) { return tags.nextTag(position, kinds); });
    }
    int previousTagOf(MarkKinds kinds, int position) const {
        return askTags(position, [=](auto&& tags) { return tags.previousTag(position, kinds); });
    }
    /// The last tag of the text, which closes the root.
    int lastTag() const;
    /// The first `>` at or after the position that stands in no quotes.
    int tagEnd(int position) const {
        return askTags(position, [=](auto&& tags) { return tags.tagEnd(position); });
    }
    /// The closing tag of the start tag at the position; a self-closing tag is its own.
    int closingTag(int position) const { return closingTags_.find(*this, position); }
    /// The start tag of the closing tag at the position, as names pair them.
    int startTag(int position) const {
        return askTags(position, [=](auto&& tags) { return tags.startTag(position); });
    }
    /// The offset behind the element whose start tag stands at the position.
    int behindElement(int element) const { return next(closingTag(element)); }
    /// The last offset of that element.
    int lastOffsetOf(int element) const;
    /// That element as it stands, with its tags.
    Core::String markupOf(int element) const;

    // Names

    /// "fo:block", "/fo:block", "?xml", "!--"; empty where no tag stands.
    View tagName(int position) const { return scannedTags_.of(all()).tagName(position); }
    Core::String nameAt(int position) const { return Core::String(tagName(position)); }
    /// Without what stands before and with the first ":".
    Core::String localNameAt(int position) const;
    /// The name of the tag at the position, or from inside text of the next tag.
    Core::String nextTagName(int position) const;
    Core::String previousTagName(int position) const { return nameAt(previousTag(position)); }

    // The element around a position. From the `<` of a start tag up to its `>` that is the parent;
    // from the `>` on, the element itself.

    int elementAround(int position) const;
    Core::String nameAround(int position) const { return nameAt(elementAround(position)); }
    /// The elements around a position, the outermost first.
    std::vector<int> elementsAround(int position) const;
    /// The start tag without its `<` and `>`.
    Core::String startTagAround(int position) const;
    int startOfContentAround(int position) const { return next(elementAround(position)); }
    int closingTagAround(int position) const { return closingTag(elementAround(position)); }
    /// The name of the element around the one around the position.
    Core::String parentName(int position) const { return nameAround(elementAround(position)); }

    /// The nearest element around the position that has the name or one of the names, with prefix.
    /// The climb ends at the root element, itself tested first.
    int ancestor(int position, View name) const;
    int ancestor(int position, const Core::StringArray& names) const;
    /// The outermost of those, and of those that begin behind an offset.
    int outermostAncestor(int position, View name, int behind = -1) const;
    int outermostAncestor(int position, const Core::StringArray& names) const;
    /// The same with a climb that ends at the nearest element named `limit`.
    int ancestorWithin(int position, View name, View limit) const;
    /// The nearest whose name without prefix is the given one.
    int localAncestor(int position, const Core::String& localName) const;

    struct Climb {
        bool wantOutermost = false;
        bool withPrefix = true;
        View limit = {}; ///< empty for the root
        int behind = -1; ///< what begins there or before is not asked
    };
    int searchAncestor(int position, const Core::StringArray& names, const Climb& climb) const;

    /// The same with one of the names and a climb that does not end at the root.
    int nearestNamed(int position, std::span<const View> names) const;
    /// The nearest element around the position that declares the prefix, in capitals or not.
    int declaringAround(int position, View prefix) const;
    /// Whether the element is one of those around the position.
    bool isAround(int element, int position) const;

    /// The properties of white space that the start tag at the position sets.
    SpaceProperties::Values spacePropertiesAt(int element) const {
        return SpaceProperties::setBy(all(), element, tagName(element));
    }
    /// Those that the elements around the position set: of each, the value nearest to it.
    SpaceProperties::Values spacePropertiesAround(int position) const;

    bool isWithin(int position, View name) const { return ancestor(position, name) >= 0; }
    bool isInLabel(int position) const { return isWithin(position, L"fo:list-item-label"); }
    bool isInFlow(int position) const { return isWithin(position, L"fo:flow"); }
    int staticContentAround(int position) const { return ancestor(position, L"fo:static-content"); }
    bool areInSameElement(View name, int a, int b) const;
    bool areInSameStaticContent(int a, int b) const {
        return areInSameElement(L"fo:static-content", a, b);
    }
    /// Whether `b` lies in the flow or else the static content around `a`, its closing tag
    /// included.
    bool areInSameRegion(int a, int b) const;
    /// Whether the same element is around both.
    bool areInOneElement(int a, int b) const { return elementAround(a) == elementAround(b); }
    /// Strictly between the `<` of the element's start tag and that of its closing tag.
    bool elementContains(int element, int position) const;

    // Elements in the order of the text

    int firstPositionInRoot() const { return XmlScan::firstPositionInRoot(all()); }
    int root() const { return prolog().root; }
    const RootEdges& rootEdges() const;
    /// Another number after each change of what stands up to the end of the root's start tag.
    unsigned headVersion() const;
    /// The next start tag behind the position, never the one at it; -1 at the root's closing tag.
    int nextElement(int position) const;
    /// The last start tag before that of the element around the position.
    int previousElement(int position) const;
    int nextNamed(int position, View name) const;
    /// The same, if it begins before `end`; what follows there is not read.
    int nextNamedBefore(int end, int position, View name) const;
    int nextNamed(int position, const Core::StringArray& names) const;
    /// The last tag of that name before the position; "/fo:block" finds closing tags.
    int previousNamed(int position, View name) const;

    // Children and siblings

    /// The first tag in the element; its own closing tag where it has no child.
    int firstChild(int element) const;
    int childNamed(int element, View name) const;
    /// The next element behind the one at the position; this may leave the parent.
    int nextSibling(int element) const { return nextElement(closingTag(element)); }
    /// The same, within the element around the position.
    int sibling(int element) const;
    /// The element before the one around the position, in the same parent. From a self-closing tag,
    /// and with `useCurrent` false, the element before that tag.
    int previousNeighbor(int position, bool useCurrent) const;
    /// The tag behind the element around the position, which may close the parent; -1 where text
    /// follows.
    int nextNeighbor(int position, bool useCurrent) const;
    /// The name of that tag, comments passed over; empty where text follows.
    Core::String nextNeighborName(int position, bool useCurrent) const;

    // Attributes

    /// The name of the first attribute behind the position, which may be on the tag or on a name.
    int nextAttribute(int position) const { return XmlScan::nextAttribute(all(), position); }
    int previousAttribute(int position) const {
        return XmlScan::previousAttribute(all(), position);
    }
    View attributeName(int position) const { return XmlScan::attributeName(all(), position); }
    /// The value as it stands, between its quotes.
    View attributeValue(int position) const { return XmlScan::attributeValue(all(), position); }
    int findQuote(int position) const { return XmlScan::findQuote(all(), position); }

    // Paths: "/qfd:document/fo:page-sequence/fo:flow", from the root down, without indices

    Core::String path(int position) const;
    Core::String pathOfPosition(int position) const;
    /// The element that a path names among those around the position.
    int elementNamedByPath(const Core::String& path, int position) const;

    // Placeholders: "&#x00A0;" or U+00A0 as all that an element shows

    bool holdsOnlyPlaceholder(int element) const;
    bool isPlaceholderAtElementEnd(int position) const;
    bool isPlaceholderBeforeClosingTag(int position) const;
    /// Whether the position begins the white space that ends at its element's closing tag.
    bool beginsTrailingSpaces(int position) const;
    /// The first "&" or U+00A0 behind the unit at the position, tags notwithstanding; it need not
    /// be a placeholder.
    int placeholderBehind(int position) const;

    // The large parts of a document

    /// The document type, and where the root element begins.
    XmlScan::Prolog prolog() const { return XmlScan::prologOf(all()); }
    /// The element that holds the page masters; -1 if there is none.
    int layoutMasterSet() const;
    /// The offset just after the page masters; -1 if there are none.
    int behindPageMasters() const;

private:
    View all() const { return View(text_); }
    static Core::String contentOf(const TextStore& text);
    template <typename Question>
    using Answer = std::invoke_result_t<Question, StoredTags>;
    /// Asks the store where it knows the answer, else scans.
    template <typename Question>
    Answer<Question> ask(bool doesStoreKnow, Question question) const {
        return doesStoreKnow ? question(StoredTags(text_)) : question(scannedTags_.of(all()));
    }
    /// The same for a question about tags at or around a position.
    template <typename Question>
    Answer<Question> askTags(int position, Question question) const {
        return ask(StoredTags(text_).know(position), question);
    }
    using Level = Ancestors::Level;
    const Level* levelAround(int position) const {
        return ancestors_.levelOf(all(), elementAround(position),
                                  [this](int element) { return elementAround(element); });
    }
    const Level* nearestLevel(int position, std::span<const View> names) const;
    bool isNamed(const Level& level, View name) const;
    bool isMarked() const { return log_ && log_.use_count() > 1; }
    int endOfStretch(int start) const;
    void forgetFrom(int position) noexcept;
    void forget(int start, int count, std::wstring_view with) noexcept;
    int findElementAround(int position) const;
    int nextElementOf(MarkKinds kinds, int position, int end) const;
    int behindNeighbor(int position, bool useCurrent) const;
    Core::String pathUpTo(int position, int root) const;

    TextStore text_;
    Core::String rootName_;
    mutable ScannedTags scannedTags_;
    mutable KnownStretch knownStretch_; // of a regular text
    mutable ClosingTags closingTags_;
    mutable Ancestors ancestors_;
    mutable UnitMemo nameEnds_{XmlScan::endsEntityName};
    mutable std::optional<RootEdges> rootEdges_;
    mutable std::shared_ptr<TextLog> log_; // also held by each mark
    mutable bool isKnownWhole_ = false;
    unsigned version_ = 0;
    unsigned headVersion_ = 0;
    mutable int headEnd_ = -1; // the `>` of the root's start tag; -1 while it is not known
};
