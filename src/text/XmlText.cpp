#include "text/XmlText.h"

#include "foundation/Transcoding.h"
#include "text/Markup.h"
#include "text/NameList.h"
#include "text/RootChildren.h"
#include "text/store/StoredContent.h"

#include <algorithm>
#include <array>
#include <utility>

using Core::String;
using Core::StringArray;
using XmlScan::Text;

namespace {

struct Delimiters {
    XmlElementType type;
    Text start;
    Text end;
};

constexpr Delimiters delimited[] = {
    {xmlProcessingInstruction, XmlScan::instructionStart, XmlScan::instructionEnd},
    {xmlComment, XmlScan::commentStart, XmlScan::commentEnd},
    {xmlCData, XmlScan::cdataStart, XmlScan::cdataEnd}};

const Delimiters* delimitersOf(XmlElementType type) {
    const auto* const found =
        std::find_if(std::begin(delimited), std::end(delimited),
                     [type](const Delimiters& known) { return known.type == type; });
    return found == std::end(delimited) ? nullptr : found;
}

bool isAmong(const StringArray& names, Text wanted) {
    return std::any_of(names.begin(), names.end(),
                       [wanted](const String& name) { return name.view() == wanted; });
}

/// The closing tag that follows the placeholder at `position` with only white space between; -1 if
/// there is none.
int closingTagBehindPlaceholder(Text text, int position) {
    const int length = XmlScan::placeholderLength(text, position);
    if (length == 0)
        return -1;
    const int behind = XmlScan::skipSpaces(text, position + length);
    return XmlScan::closingAt(text, behind) ? behind : -1;
}

/// What stands in the elements of that name.
std::vector<Text> contentsOf(Text name, Text text) {
    std::vector<Text> contents;
    for (int tag = XmlScan::nextTag(text, 0); tag >= 0;
         tag = XmlScan::nextTag(text, XmlScan::stepForward(text, tag))) {
        if (XmlScan::tagName(text, tag) != name)
            continue;
        const int closing = XmlScan::closingTag(text, tag);
        if (closing > tag)
            contents.push_back(XmlScan::slice(text, XmlScan::stepForward(text, tag), closing));
    }
    return contents;
}

} // namespace

// Changes

void XmlText::insert(int position, const String& xml) {
    replace(position, 0, xml.view());
}

String XmlText::erase(int start, int end) {
    String removed = slice(start, end);
    replace(start, end - start, {});
    return removed;
}

void XmlText::replace(int start, int count, std::wstring_view with) {
    TextLog::Version* const version =
        isMarked() ? &log_->prepare({start, count, static_cast<int>(with.size())}) : nullptr;
    text_.replace(start, count, with);
    if (version)
        log_->goTo(*version);
    forget(start, count, with);
}

/// What a change at one place leaves as it was is kept.
void XmlText::forget(int start, int count, std::wstring_view with) noexcept {
    KnownStretch stretch = knownStretch_;
    std::optional<RootEdges> edges = rootEdges_;
    stretch.follow(start, count, with);
    const int oldLength = length() + count - static_cast<int>(with.size());
    if (edges && !edges->areAround(start, start + count, oldLength))
        edges.reset();
    forgetFrom(start);
    knownStretch_ = stretch;
    rootEdges_ = edges;
}

void XmlText::assign(const String& content) {
    replace(0, length(), content.view());
}

unsigned XmlText::headVersion() const {
    if (headEnd_ < 0) {
        const int end = tagEnd(root());
        headEnd_ = end < 0 ? length() : end;
    }
    return headVersion_;
}

void XmlText::forgetFrom(int position) noexcept {
    const bool isTypeChanged = scannedTags_.forgetFrom(position);
    knownStretch_.forget();
    rootEdges_.reset();
    ancestors_.forgetBehind(isTypeChanged ? -1 : position);
    closingTags_.forgetFrom(position);
    nameEnds_.forgetFrom(position);
    isKnownWhole_ = false;
    ++version_;
    if (position <= headEnd_ || headEnd_ < 0) {
        headEnd_ = -1;
        ++headVersion_;
    }
}

// Versions

TextMark XmlText::mark() const {
    if (!log_)
        log_ = std::make_shared<TextLog>();
    return TextMark(log_, text_, isKnownWhole_);
}

TextChange XmlText::changeSince(const TextMark& mark) const {
    std::vector<TextChange> changes;
    log_->walk(mark.version(),
               [&](const TextChange& change) { changes.push_back(change.undone()); });
    if (changes.empty())
        return {};
    TextChange whole = changes.back();
    std::for_each(changes.rbegin() + 1, changes.rend(),
                  [&](const TextChange& change) { whole.add(change); });
    return whole;
}

XmlText::View XmlText::oldText(const TextMark& mark, const TextChange& change) {
    return XmlScan::slice(View(mark.text()), change.start, change.start + change.removed);
}

bool XmlText::isAsAt(const TextMark& mark) const {
    const TextChange change = changeSince(mark);
    return change.removed == change.inserted &&
           oldText(mark, change) == view(change.start, change.start + change.inserted);
}

bool XmlText::keepsContentOf(View name, const TextMark& mark) const {
    return contentsOf(name, View(mark.text())) == contentsOf(name, all());
}

void XmlText::goBackTo(const TextMark& mark) noexcept {
    int first = length();
    log_->walk(mark.version(),
               [&first](const TextChange& change) { first = std::min(first, change.start); });
    text_ = mark.text();
    log_->goTo(mark.version());
    forgetFrom(first);
    isKnownWhole_ = mark.isKnownWhole();
}

/// A short text is rather copied than kept in pieces.
String XmlText::contentOf(const TextStore& text) {
    constexpr int isShort = 1024;
    return text.length() < isShort ? String(View(text))
                                   : String(std::make_shared<StoredContent>(text));
}

int XmlText::endOfStretch(int start) const {
    constexpr int most = 32 * 1024;
    if (length() - start <= most)
        return length();
    const int end = start + most;
    return Core::Transcoding::isHighSurrogate(unitAt(end - 1)) ? end - 1 : end;
}

// What stands at a position

bool XmlText::openingAt(int position) const {
    return onTagStart(position) && !closingAt(position) && !ignoredAt(position) &&
           !documentTypeAt(position) && !selfClosingAt(position);
}

bool XmlText::closingTagFollows(int position) const {
    return isValid(position) && nextTagName(position).startsWith(L"/");
}

XmlElementType XmlText::kindBeginningAt(int position) const {
    if (!onTagStart(position))
        return xmlNone;
    for (const Delimiters& known : delimited)
        if (standsAt(known.start, position))
            return known.type;
    return xmlElement;
}

XmlElementType XmlText::kindEndingAt(int position) const {
    if (!isValid(position) || unitAt(position) != L'>')
        return xmlNone;
    for (const Delimiters& known : delimited) {
        const int delimiter = position - static_cast<int>(known.end.size()) + 1;
        if (delimiter < 1 || !standsAt(known.end, delimiter))
            continue;
        const int opened = rFind(known.start, delimiter - 1);
        const int closed = rFind(known.end, delimiter - 1);
        return opened >= 0 && opened >= closed ? known.type : xmlNone;
    }
    return xmlElement;
}

int XmlText::kindStart(XmlElementType type, int position) const {
    if (const Delimiters* const known = delimitersOf(type))
        return rFind(known->start, position);
    if (type != xmlElement)
        return position;
    return position < 1 ? -1 : startTag(previous(position - 1));
}

int XmlText::kindEnd(XmlElementType type, int position) const {
    if (const Delimiters* const known = delimitersOf(type)) {
        const int found = find(known->end, position);
        return found < 0 ? -1 : found + static_cast<int>(known->end.size());
    }
    return type == xmlElement ? behindElement(position) : position;
}

bool XmlText::isBeforeTable(int position) const {
    return tagName(position) == L"fo:table";
}

bool XmlText::isBehindTable(int position) const {
    return isValid(position) && position > 0 && unitAt(position - 1) == L'>' &&
           tagName(previousTag(position)) == L"/fo:table";
}

// Units and tags in the order of the text

int XmlText::next(int position) const {
    if (!onTagStart(position))
        return XmlScan::stepForward(all(), position);
    return askTags(position, [=](auto&& tags) { return tags.next(position); });
}

int XmlText::previous(int position) const {
    return XmlScan::stepBackward(all(), position, rootName_.view(), [this](int bracket) {
        const bool isText = askTags(bracket, [=](auto&& tags) { return tags.isText(bracket); });
        return isText ? bracket : previousTag(bracket);
    });
}

int XmlText::markupAround(int position) const {
    if (!isValid(position))
        return -1;
    return ask(text_.isRegular(), [=](auto&& tags) { return tags.markupAround(position); });
}

int XmlText::unitStart(int position) const {
    const int markup = markupAround(position);
    return markup < 0 ? XmlScan::unitStartInText(all(), position, nameEnds_) : markup;
}

int XmlText::lastTag() const {
    int tag = previousTag(length() - 1);
    while (ignoredAt(tag))
        tag = previousTag(tag);
    return tag;
}

int XmlText::lastOffsetOf(int element) const {
    const int closing = closingTag(element);
    return closing < 0 ? -1 : tagEnd(closing);
}

String XmlText::markupOf(int element) const {
    const int last = lastOffsetOf(element);
    return last < 0 ? String() : slice(element, last + 1);
}

String XmlText::localNameAt(int position) const {
    return String(XmlScan::localName(tagName(position)));
}

String XmlText::nextTagName(int position) const {
    return nameAt(onTagStart(position) ? position : nextTag(position));
}

// The element around a position

int XmlText::elementAround(int position) const {
    if (knownStretch_.holds(position) && text_.isRegular())
        return knownStretch_.element();
    return StoredTags(text_).know(position) ? findElementAround(position)
                                            : scannedTags_.of(all()).elementAround(position);
}

/// Of a place of which the store knows.
int XmlText::findElementAround(int position) const {
    if (const Level* const level = ancestors_.find(position))
        return level->parent ? level->parent->element : -1;
    const int element = text_.elementAround(position);
    if (text_.markupAround(position) < 0) {
        const auto [start, end] = text_.stretchAround(position);
        knownStretch_.remember(start, end, element);
    }
    return element;
}

std::vector<int> XmlText::elementsAround(int position) const {
    std::vector<int> around;
    for (const Level* level = levelAround(position); level; level = level->parent)
        around.push_back(level->element);
    std::reverse(around.begin(), around.end());
    return around;
}

String XmlText::startTagAround(int position) const {
    const int element = elementAround(position);
    const int behind = next(element);
    return behind < 0 ? String() : slice(element + 1, behind - 1);
}

int XmlText::searchAncestor(int position, const StringArray& names, const Climb& climb) const {
    const View limit = climb.limit.empty() ? rootName_.view() : climb.limit;
    const Level* level = levelAround(position);
    Ancestors::Marks marks = climb.withPrefix ? 0 : Ancestors::all;
    if (climb.withPrefix)
        for (const String& name : names)
            marks |= ancestors_.markOf(name);
    if (climb.wantOutermost && climb.withPrefix) {
        const int end = nearestNamed(position, std::array{limit});
        const Level* const found =
            Ancestors::outermost(level, std::max(end, climb.behind + 1), marks);
        if (!found || isAmong(names, tagName(found->element)))
            return found ? found->element : -1;
    }
    if (climb.withPrefix)
        marks |= ancestors_.markOf(limit);
    int outermost = -1;
    while ((level = Ancestors::nearest(level, marks)) && level->element > climb.behind) {
        const View fullName = tagName(level->element);
        const View name = climb.withPrefix ? fullName : XmlScan::localName(fullName);
        if (isAmong(names, name)) {
            outermost = level->element;
            if (!climb.wantOutermost)
                break;
        }
        if (name == limit)
            break;
        level = level->parent;
    }
    return outermost;
}

int XmlText::ancestor(int position, View name) const {
    return ancestorWithin(position, name, rootName_.view());
}

int XmlText::ancestorWithin(int position, View name, View limit) const {
    const Level* const level = nearestLevel(position, std::array{name, limit});
    return level && isNamed(*level, name) ? level->element : -1;
}

int XmlText::nearestNamed(int position, std::span<const View> names) const {
    const Level* const level = nearestLevel(position, names);
    return level ? level->element : -1;
}

const XmlText::Level* XmlText::nearestLevel(int position, std::span<const View> names) const {
    const Level* level = levelAround(position);
    Ancestors::Marks marks = 0;
    for (const View name : names)
        marks |= ancestors_.markOf(name);
    while ((level = Ancestors::nearest(level, marks))) {
        const Ancestors::Marks met = level->name & marks;
        if (Ancestors::isOfOneName(met) ||
            (met != 0 && XmlScan::contains(names, tagName(level->element))))
            return level;
        level = level->parent;
    }
    return nullptr;
}

bool XmlText::isNamed(const Level& level, View name) const {
    const Ancestors::Marks mark = ancestors_.markOf(name);
    return Ancestors::isOfOneName(mark) ? level.name == mark : tagName(level.element) == name;
}

int XmlText::declaringAround(int position, View prefix) const {
    const String declaration = (L"xmlns:" + String(prefix) + L"=").toLower();
    const Level* level = levelAround(position);
    const Ancestors::Marks mark = ancestors_.markOf(declaration.substringBefore(L"="));
    while ((level = Ancestors::nearest(level, mark))) {
        if (Namespaces::declares(Namespaces::of(*this, level->element), declaration))
            return level->element;
        level = level->parent;
    }
    return -1;
}

bool XmlText::isAround(int element, int position) const {
    return Ancestors::isAround(element, levelAround(position));
}

SpaceProperties::Values XmlText::spacePropertiesAround(int position) const {
    SpaceProperties::Values values;
    const Level* const innermost = levelAround(position);
    for (std::size_t property = 0; property < values.size(); ++property)
        if (const Level* const level = Ancestors::nearest(innermost, Ancestors::markOf(property)))
            values[property] = spacePropertiesAt(level->element)[property];
    return values;
}

int XmlText::ancestor(int position, const StringArray& names) const {
    return searchAncestor(position, names, {});
}

int XmlText::outermostAncestor(int position, const StringArray& names) const {
    return searchAncestor(position, names, {.wantOutermost = true});
}

int XmlText::outermostAncestor(int position, View name, int behind) const {
    return searchAncestor(position, {String(name)}, {.wantOutermost = true, .behind = behind});
}

int XmlText::localAncestor(int position, const String& localName) const {
    return searchAncestor(position, {localName}, {.withPrefix = false});
}

bool XmlText::areInSameElement(View name, int a, int b) const {
    const int around = ancestor(a, name);
    return around >= 0 && around == ancestor(b, name);
}

bool XmlText::areInSameRegion(int a, int b) const {
    const int flow = ancestor(a, L"fo:flow");
    const int region = flow < 0 ? staticContentAround(a) : flow;
    return region >= 0 && region < b && b <= closingTag(region);
}

bool XmlText::elementContains(int element, int position) const {
    return onTagStart(element) && element < position && position < closingTag(element);
}

// Elements in the order of the text

const RootEdges& XmlText::rootEdges() const {
    if (!rootEdges_)
        rootEdges_ = RootEdges::of(all());
    return *rootEdges_;
}

int XmlText::nextElement(int position) const {
    return nextElementOf(MarkKinds::tagStarts(), position, length());
}

/// Passes elements that are not of the kinds, if it can.
int XmlText::nextElementOf(MarkKinds kinds, int position, int end) const {
    kinds |= MarkKinds::named(XmlScan::foRoot) | MarkKinds::named(rootName_.view());
    int tag = nextTagOf(kinds, onTagStart(position) ? next(position) : position);
    while (tag < end && closingAt(tag)) {
        if (!rootName_.empty() && tagName(tag).substr(1) == rootName_.view())
            return -1;
        tag = nextTagOf(kinds, next(tag));
    }
    return tag < end ? tag : -1;
}

int XmlText::previousElement(int position) const {
    int tag = previousTag(elementAround(position));
    while (closingAt(tag) || ignoredAt(tag))
        tag = previousTag(tag);
    return tag;
}

int XmlText::nextNamed(int position, View name) const {
    return nextNamedBefore(length(), position, name);
}

int XmlText::nextNamedBefore(int end, int position, View name) const {
    const MarkKinds kinds = MarkKinds::named(name);
    int element = nextElementOf(kinds, position, end);
    while (element >= 0 && tagName(element) != name)
        element = nextElementOf(kinds, element, end);
    return element;
}

int XmlText::nextNamed(int position, const StringArray& names) const {
    MarkKinds kinds;
    for (const String& name : names)
        kinds |= MarkKinds::named(name);
    int element = nextElementOf(kinds, position, length());
    while (element >= 0 && !isAmong(names, tagName(element)))
        element = nextElementOf(kinds, element, length());
    return element;
}

int XmlText::previousNamed(int position, View name) const {
    const MarkKinds kinds = MarkKinds::named(name);
    int tag = previousTagOf(kinds, position);
    while (tag >= 0 && tagName(tag) != name)
        tag = previousTagOf(kinds, tag);
    return tag;
}

// Children and siblings

int XmlText::firstChild(int element) const {
    if (!onTagStart(element) || selfClosingAt(element))
        return -1;
    const int tag = nextTag(next(element));
    return tag > closingTag(element) ? -1 : tag;
}

int XmlText::childNamed(int element, View name) const {
    const int end = closingTag(element);
    int child = firstChild(element);
    while (child >= 0 && child <= end) {
        if (tagName(child) == name)
            return child;
        child = nextTag(behindElement(child));
    }
    return -1;
}

int XmlText::sibling(int element) const {
    const int sibling = nextSibling(element);
    return sibling < closingTagAround(element) ? sibling : -1;
}

int XmlText::previousNeighbor(int position, bool useCurrent) const {
    const bool atSelfClosing = !useCurrent && selfClosingAt(position);
    int tag = previousTag(atSelfClosing ? position : elementAround(position));
    while (commentAt(tag))
        tag = previousTag(tag);
    if (closingAt(tag))
        return elementAround(tag);
    return selfClosingAt(tag) ? tag : -1;
}

int XmlText::behindNeighbor(int position, bool useCurrent) const {
    const bool atSelfClosing = !useCurrent && selfClosingAt(position);
    return skipSpaces(next(atSelfClosing ? position : closingTagAround(position)));
}

int XmlText::nextNeighbor(int position, bool useCurrent) const {
    const int behind = behindNeighbor(position, useCurrent);
    return onTagStart(behind) ? nextTag(behind) : -1;
}

String XmlText::nextNeighborName(int position, bool useCurrent) const {
    int behind = behindNeighbor(position, useCurrent);
    while (commentAt(behind))
        behind = skipSpaces(next(behind));
    return onTagStart(behind) ? nextTagName(nextTag(behind)) : String();
}

// Paths

String XmlText::pathUpTo(int position, int root) const {
    if (position < 0)
        return {};
    const std::vector<int> around = elementsAround(position);
    const auto first = std::find_if(around.rbegin(), around.rend(), [&](int element) {
        return element == root || tagName(element) == rootName_.view();
    });
    // Where no root is around, nothing is the last step of the climb, and its name is empty.
    String path = first == around.rend() ? L"/" : L"";
    for (auto element = first == around.rend() ? around.begin() : first.base() - 1;
         element != around.end(); ++element)
        path += L"/" + String(tagName(*element));
    return path;
}

String XmlText::pathOfPosition(int position) const {
    return pathUpTo(position, -1);
}

String XmlText::path(int position) const {
    return pathUpTo(position, root());
}

int XmlText::elementNamedByPath(const String& wanted, int position) const {
    if (wanted.empty())
        return elementAround(position);
    if (wanted == L"/" + rootName_)
        return root();
    const String whole = path(position);
    View reached = whole.view();
    for (auto slash = reached.rfind(L'/'); reached != wanted.view() && slash != View::npos;
         slash = reached.rfind(L'/')) {
        reached = reached.substr(0, slash);
        position = elementAround(position);
    }
    return elementAround(position);
}

// Placeholders

bool XmlText::holdsOnlyPlaceholder(int element) const {
    if (!openingAt(element))
        return false;
    const int closing = closingTagBehindPlaceholder(all(), skipSpaces(next(element)));
    return closing >= 0 && closing == closingTag(element);
}

bool XmlText::isPlaceholderAtElementEnd(int position) const {
    const int closing = closingTagBehindPlaceholder(all(), position);
    return closing >= 0 && closing == closingTagAround(position);
}

bool XmlText::isPlaceholderBeforeClosingTag(int position) const {
    const int closing = closingTagBehindPlaceholder(all(), position);
    return closing >= 0 && closing == closingTagAround(closing);
}

bool XmlText::beginsTrailingSpaces(int position) const {
    int start = closingTagAround(position);
    if (start < 1 || !String::isSpace(unitAt(start - 1)))
        return false;
    while (start > 0 && String::isSpace(unitAt(start - 1)))
        --start;
    return position == start;
}

int XmlText::placeholderBehind(int position) const {
    for (int at = next(position); isValid(at); ++at)
        if (unitAt(at) == L'&' || unitAt(at) == L'\x00A0')
            return at;
    return -1;
}

// The large parts of a document

int XmlText::layoutMasterSet() const {
    static constexpr Text name = L"fo:layout-master-set";
    // One that stands deeper may be part of a style sheet.
    if (const int child = RootChildren::named(*this, name); child >= 0)
        return child;
    const int first = nextTag(0);
    return tagName(first) == name ? first : nextNamed(first, name);
}

int XmlText::behindPageMasters() const {
    const int set = layoutMasterSet();
    const int closing = set < 0 ? -1 : closingTag(set);
    return closing < 0 ? -1 : tagEnd(closing + 1) + 1;
}
