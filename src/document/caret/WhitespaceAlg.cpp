#include "document/caret/WhitespaceAlg.h"

#include "document/Document.h"

#include "text/XmlText.h"

#include <array>

using Core::String;
using XmlScan::Text;

namespace BufferAlgorithms {

namespace {

constexpr Text block = L"fo:block";
constexpr Text table = L"fo:table";
constexpr Text link = L"fo:basic-link";

/// The other case of a unit is one unit, so that the length tells nearly always.
bool equalsNoCase(Text value, Text keyword) {
    return value.size() == keyword.size() &&
           (value == keyword || String(value).toLower().view() == keyword);
}

/// The name of the element that the tag opens or closes.
Text elementName(const XmlText& text, int tag) {
    const Text name = text.tagName(tag);
    return name.starts_with(L'/') ? name.substr(1) : name;
}

bool isSpaceAt(const XmlText& text, int position) {
    return text.isValid(position) && String::isSpace(text.unitAt(position));
}

/// The placeholder that ends where the position begins; -1 if none does.
int placeholderBefore(const XmlText& text, int position) {
    for (const Text placeholder : {XmlScan::nbspEntity, XmlScan::nbspCharacter}) {
        const int start = position - static_cast<int>(placeholder.size());
        if (text.standsAt(placeholder, start))
            return start;
    }
    return -1;
}

} // namespace

// The properties

void WhitespaceAlg::load(int element) {
    if (text().onTagStart(element))
        load(element, {});
}

void WhitespaceAlg::load(int element, const std::vector<int>& entered) {
    if (element < 0 && entered.empty())
        return;
    reset();
    const Values& values = nearestValues(element, entered);
    applyShorthand(values[SpaceProperties::Shorthand].value_or(Text()));
    applyTreatment(values[SpaceProperties::Treatment].value_or(Text()));
    applyCollapse(values[SpaceProperties::Collapse].value_or(Text()));
    applyLinefeedTreatment(values[SpaceProperties::Linefeed].value_or(Text()));
}

/// A walk goes in and out, so that most of the way is as it was.
const WhitespaceAlg::Values& WhitespaceAlg::nearestValues(int element,
                                                          const std::vector<int>& entered) {
    const auto isLeft = [&](std::size_t level) {
        return level > entered.size() || levels_[level].element != entered[level - 1];
    };
    if (levels_.empty() || levels_.front().element != element)
        levels_.assign(1, {element, valuesIn(element, text().spacePropertiesAround(element))});
    while (levels_.size() > 1 && isLeft(levels_.size() - 1))
        levels_.pop_back();
    while (levels_.size() <= entered.size()) {
        const int inner = entered[levels_.size() - 1];
        levels_.push_back({inner, valuesIn(inner, levels_.back().values)});
    }
    return levels_.back().values;
}

WhitespaceAlg::Values WhitespaceAlg::valuesIn(int element, const Values& around) const {
    Values values = text().spacePropertiesAt(element);
    for (std::size_t property = 0; property < values.size(); ++property)
        if (!values[property])
            values[property] = around[property];
    return values;
}

void WhitespaceAlg::reset() {
    treatment_ = IgnoreAroundLinefeed;
    collapse_ = true;
    linefeed_ = LinefeedAsSpace;
}

void WhitespaceAlg::applyShorthand(Text value) {
    if (!equalsNoCase(value, L"pre"))
        return;
    treatment_ = PreserveSpaces;
    collapse_ = false;
    linefeed_ = PreserveLinefeed;
}

void WhitespaceAlg::applyTreatment(Text value) {
    static constexpr std::array<Text, 5> keywords{
        L"ignore", L"preserve", L"ignore-if-before-linefeed", L"ignore-if-after-linefeed",
        L"ignore-if-surrounding-linefeed"};
    for (std::size_t keyword = 0; keyword < keywords.size(); ++keyword)
        if (equalsNoCase(value, keywords[keyword]))
            treatment_ = static_cast<Treatment>(keyword);
}

void WhitespaceAlg::applyCollapse(Text value) {
    if (!value.empty())
        collapse_ = !equalsNoCase(value, L"false");
}

void WhitespaceAlg::applyLinefeedTreatment(Text value) {
    static constexpr std::array<Text, 4> keywords{L"ignore", L"preserve", L"treat-as-space",
                                                  L"treat-as-zero-width-space"};
    for (std::size_t keyword = 0; keyword < keywords.size(); ++keyword)
        if (equalsNoCase(value, keywords[keyword]))
            linefeed_ = static_cast<Linefeed>(keyword);
}

bool WhitespaceAlg::isSkipped(int position) const {
    return isSkipped(position, document_.text().elementAround(position));
}

bool WhitespaceAlg::isSkipped(int position, int element) const {
    return text().onTagStart(position) ? isTagSkipped(position, element)
                                       : isSpaceSkipped(position, element);
}

// White space

/// A unit of white space in its element and its run.
struct WhitespaceAlg::Space {
    int position;
    int element;
    const Run& run;
};

const WhitespaceAlg::Run& WhitespaceAlg::runAround(int position) const {
    if (run_.start <= position && position < run_.end)
        return run_;
    run_.start = position;
    while (isSpaceAt(text(), run_.start - 1))
        --run_.start;
    run_.end = text().skipSpaces(position);
    run_.previousTag = text().previousTag(run_.start);
    return run_;
}

bool WhitespaceAlg::isSpaceSkipped(int position, int element) const {
    if (!isSpaceAt(text(), position))
        return false;
    if (treatment_ == IgnoreSpaces && (linefeed_ == IgnoreLinefeed || linefeed_ == LinefeedAsSpace))
        return true;
    const Space space{position, element, runAround(position)};
    if (const auto skipped = skippedAsLinefeed(space))
        return *skipped;
    if (const auto skipped = skippedInLeadingRun(space))
        return *skipped;
    if (const auto skipped = skippedInTrailingRun(space))
        return *skipped;
    return skippedInInnerRun(space);
}

std::optional<bool> WhitespaceAlg::skippedAsLinefeed(const Space& space) const {
    const wchar_t unit = text().unitAt(space.position);
    if ((unit != L'\n' && unit != L'\r') || linefeed_ == LinefeedAsSpace)
        return std::nullopt;
    return linefeed_ != PreserveLinefeed;
}

/// At the start of the element, or behind a child that makes a line of its own.
std::optional<bool> WhitespaceAlg::skippedInLeadingRun(const Space& space) const {
    int start = text().next(space.element);
    const int previous = space.run.previousTag;
    if (previous > space.element && text().closingAt(previous) &&
        !isInline(elementName(text(), previous)))
        start = text().next(previous);
    // The first blank of an inline within a line shows.
    if (space.position == start && isInline(elementName(text(), space.element)) &&
        blockShowsDataBefore(start, space.element))
        return treatment_ == IgnoreSpaces;
    if (space.run.start <= start && start <= space.position)
        return collapses();
    return std::nullopt;
}

/// At the end of the element, or before a child that makes a line of its own.
std::optional<bool> WhitespaceAlg::skippedInTrailingRun(const Space& space) const {
    if (!text().onTagStart(space.run.end) || text().ignoredAt(space.run.end))
        return std::nullopt;
    if (!text().closingAt(space.run.end) && isInline(elementName(text(), space.run.end)))
        return std::nullopt;
    if (space.position == space.run.start && isInline(elementName(text(), space.element)))
        return treatment_ == IgnoreSpaces;
    return collapses();
}

/// Between data: all but the first of a run collapse.
bool WhitespaceAlg::skippedInInnerRun(const Space& space) const {
    if (!blockShowsDataBefore(space.run.start, space.element))
        return false;
    if (space.position != space.run.start)
        return collapses();
    const int previous = text().previous(space.position);
    const bool behindBlock = text().onTagStart(previous) &&
                             elementName(text(), previous) == block && !text().openingAt(previous);
    return behindBlock && collapse_ ? true : treatment_ == IgnoreSpaces;
}

// Tags

bool WhitespaceAlg::isTagSkipped(int position, int element) const {
    if (text().closingAt(position) || isEditable(text().tagName(position)))
        if (const auto skipped = skippedBehindSpace(position, element))
            return *skipped;
    return standsBackToBack(position);
}

/// Behind white space or a placeholder.
std::optional<bool> WhitespaceAlg::skippedBehindSpace(int position, int element) const {
    const bool behindSpace = isSpaceAt(text(), position - 1);
    const int before = behindSpace ? position - 1 : placeholderBefore(text(), position);
    if (before < 0)
        return std::nullopt;
    if (behindSpace && !blockShowsDataBefore(before, element))
        return true;
    if (!behindSpace && isInlineTag(position))
        return false;
    const int previous = text().previousTag(position);
    if (!runMayHideTag(previous, position))
        return false;
    for (int at = text().next(previous); at < before; ++at)
        if (!isSpaceSkipped(at, element))
            return false;
    return true;
}

/// Whether the tag goes with the tag before it when nothing shows between them.
bool WhitespaceAlg::runMayHideTag(int previousTag, int position) const {
    const Text name = elementName(text(), previousTag);
    if (text().closingAt(previousTag))
        return name == table || (isEditable(name) && !isInline(name));
    const bool breaksLine = text().selfClosingAt(previousTag) && !isInline(name);
    return isEditable(name) && (breaksLine || !isInlineTag(position));
}

/// Two editable tags back to back have one stop between them, not two. A link always keeps its own.
bool WhitespaceAlg::standsBackToBack(int position) const {
    if (position < 1 || text().unitAt(position - 1) != L'>')
        return false;
    const auto joins = [this](int tag) {
        const Text name = elementName(text(), tag);
        return isEditable(name) && name != link;
    };
    return joins(position) && joins(text().previous(position));
}

// What shows

/// Begins at the start of the block around the element, unless that was begun with.
void WhitespaceAlg::searchBlockAround(int element) const {
    if (element == search_.element)
        return;
    search_.element = element;
    const int around = text().tagName(element) == block
                           ? element
                           : text().nearestNamed(element, std::array{block});
    if (around != search_.block)
        search_ = {search_.element, around, text().next(around), -1};
}

/// Whether anything shows between the start of the block around the element and the position. A
/// walk asks again and again, so the search goes on from where it was.
bool WhitespaceAlg::blockShowsDataBefore(int position, int element) const {
    searchBlockAround(element);
    while (search_.data < 0 && search_.position >= 0 && search_.position < position) {
        if (showsAt(search_.position))
            search_.data = search_.position;
        search_.position = text().next(search_.position);
    }
    return search_.data >= 0 && search_.data < position;
}

bool WhitespaceAlg::showsAt(int position) const {
    if (!text().onTagStart(position))
        return !isSpaceAt(text(), position);
    return !text().commentAt(position) && !text().instructionAt(position) &&
           !isEditable(text().tagName(position));
}

bool WhitespaceAlg::isInlineTag(int position) const {
    return isInline(elementName(text(), position));
}

const XmlText& WhitespaceAlg::text() const {
    return document_.text();
}

bool WhitespaceAlg::isEditable(Text name) const {
    return document_.names.isEditable(name);
}

bool WhitespaceAlg::isInline(Text name) const {
    return document_.names.isInline(name);
}

} // namespace BufferAlgorithms
