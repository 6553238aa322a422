#include "export/FoWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <type_traits>

using FoModel::Kinds;
using FoModel::Object;
using FoModel::WhenEmpty;

namespace {

constexpr std::string_view noBreakSpace = "\u00A0";
constexpr std::string_view blanks = " \t\n\r";

bool isBlank(std::string_view text) {
    return text.find_first_not_of(blanks) == text.npos;
}

bool isPlaceholder(std::string_view text) {
    const std::size_t start = std::min(text.find_first_not_of(blanks), text.size());
    text.remove_prefix(start);
    return text.starts_with(noBreakSpace) && isBlank(text.substr(noBreakSpace.size()));
}

std::string replaced(std::string_view text, std::string_view units,
                     std::string_view (*replacement)(char)) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t found = std::min(text.find_first_of(units, at), text.size());
        result += text.substr(at, found - at);
        if (found < text.size())
            result += replacement(text[found]);
        at = found + 1;
    }
    return result;
}

std::string_view reference(char unit) {
    switch (unit) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\t':
        return "&#9;";
    case '\n':
        return "&#10;";
    default:
        return "&#13;";
    }
}

/// Where an object may not stand, although others of its kind may.
struct Limit {
    std::string_view object;
    std::array<std::string_view, 2> within;    // one of these
    std::array<std::string_view, 3> notWithin; // none of these
    FoWriter::Place otherwise;
};

constexpr Limit limits[] = {
    {"footnote", {"flow"}, {"footnote", "float", "marker"}, FoWriter::Place::None},
    {"float", {"flow"}, {"footnote", "float", "marker"}, FoWriter::Place::None},
    {"marker", {"flow"}, {"marker"}, FoWriter::Place::Refused},
    {"retrieve-marker", {"static-content"}, {}, FoWriter::Place::Refused},
    {"retrieve-table-marker", {"table-header", "table-footer"}, {}, FoWriter::Place::Refused},
};

int numberOf(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

} // namespace

std::string FoWriter::escaped(std::string_view text) {
    return replaced(text, "&<>\r", reference);
}

std::string FoWriter::escapedValue(std::string_view value) {
    return replaced(value, "&<>\"\t\n\r", reference);
}

FoWriter::Place FoWriter::open(const Object& asked, FoProperties properties) {
    const Object* object = &asked;
    if (open_.empty()) {
        push(*object, properties, false);
        return Place::Found;
    }
    if (const Place limit = limitOf(*object); limit != Place::Found)
        return limit;
    if (object->name == "table-cell" && properties["starts-row"] == "true" &&
        open_.back().isImplied && open_.back().object->name == "table-row")
        close();
    if (!makeRoomFor(object->is))
        return Place::None;
    if (object->is == FoModel::marker)
        return openMarker(*object, properties);
    object = onceOf(*object);
    if (!object)
        return Place::Refused;
    if (object->name == "flow" && flow_) {
        resumeFlow();
        open_.back().isImplied = false;
        return Place::Found;
    }
    push(*object, properties, false);
    return Place::Found;
}

/// Makes the innermost object one that has a place for the child, if there is a way to.
bool FoWriter::makeRoomFor(Kinds child) {
    for (;;) {
        const Frame& top = open_.back();
        if (top.holds & child) {
            releasePlaceholder(open_.back());
            return true;
        }
        const Object* implied = FoModel::find(top.implied);
        if (implied && FoModel::canTake(*implied, child))
            pushImplied(top.implied);
        else if (!top.isImplied)
            return false;
        else if (top.object->name == "flow") {
            flow_ = std::move(open_.back());
            open_.pop_back();
        } else
            close();
    }
}

bool FoWriter::isWithin(std::string_view object) const {
    return std::any_of(open_.begin(), open_.end(),
                       [&](const Frame& each) { return each.object->name == object; });
}

FoWriter::Place FoWriter::limitOf(const Object& object) const {
    const auto* limit = std::find_if(std::begin(limits), std::end(limits),
                                     [&](const Limit& each) { return each.object == object.name; });
    if (limit == std::end(limits))
        return Place::Found;
    const auto isAround = [this](std::string_view name) { return !name.empty() && isWithin(name); };
    return std::any_of(limit->within.begin(), limit->within.end(), isAround) &&
                   std::none_of(limit->notWithin.begin(), limit->notWithin.end(), isAround)
               ? Place::Found
               : limit->otherwise;
}

/// Markers stand before all else, and of those in one object each has a class of its own; one that
/// does not is put into an object that shows nothing.
FoWriter::Place FoWriter::openMarker(const Object& object, const FoProperties& properties) {
    Frame& around = open_.back();
    const bool isNew = around.markers.insert(properties["marker-class-name"]).second;
    if (!isNew || (around.hasContent && around.groups.empty())) {
        if (!(around.holds & FoModel::anywhere))
            return Place::Refused;
        pushImplied("wrapper");
        open_.back().holds = FoModel::marker;
        open_.back().implied = {};
    }
    const bool hadContent = open_.back().hasContent;
    push(object, properties, false);
    open_[open_.size() - 2].hasContent = hadContent; // further ones may follow
    return Place::Found;
}

/// What the object is as a further one of those that come once; null if it has to go.
const Object* FoWriter::onceOf(const Object& object) {
    Frame& around = open_.back();
    const Kinds kind = object.is & FoModel::once;
    if (!kind)
        return &object;
    if (around.seen & kind && around.object->name == "list-item")
        splitItem();
    else if (around.seen & kind && around.object->name == "table")
        return FoModel::find("table-body");
    else if (around.seen & kind)
        return nullptr;
    open_.back().seen |= kind;
    return &object;
}

void FoWriter::push(const Object& object, const FoProperties& properties, bool isImplied) {
    Frame frame{.object = &object,
                .holds = holdsOf(object, isImplied),
                .implied = object.implied,
                .start = {},
                .id = {},
                .rows = {},
                .groups = std::vector<Chunks>(object.hasGroups() ? object.groups.size() : 0),
                .markers = {},
                .grid = {},
                .tableLayout = {},
                .begin = {},
                .heldPlaceholder = {},
                .isImplied = isImplied};
    if (object.is & FoModel::wrapper && !(frame.holds & FoModel::text))
        frame.implied = "block";
    if (object.implied == "table-row")
        frame.grid.emplace();
    setProperties(frame, properties);
    static_assert(std::is_nothrow_move_constructible_v<Frame>, "sinks stay where they are");
    frame.sink = open_.empty() ? &document_ : &sinkIn(open_.back(), object);
    open_.push_back(std::move(frame));
    if (!isImplied && object.whenEmpty != WhenEmpty::Goes)
        write(open_.size() - 1);
}

Kinds FoWriter::holdsOf(const Object& object, bool isImplied) const {
    if (open_.empty())
        return object.holds();
    if (object.is & FoModel::wrapper) {
        const auto around = std::find_if(open_.rbegin(), open_.rend(), [](const Frame& each) {
            return (each.holds & (FoModel::block | FoModel::inlineLevel)) != 0;
        });
        return around == open_.rend() ? object.holds() : around->holds;
    }
    const Kinds around = open_.back().holds;
    const bool isInLine = FoModel::isMixed(around) && !(around & FoModel::block);
    // A line that nobody asked for ends where a block begins.
    if (isInLine || (isImplied && object.name == "block") ||
        open_.back().object->name == "footnote")
        return object.holds() & (FoModel::isMixed(object.holds()) ? ~FoModel::block : ~Kinds{0});
    return object.holds();
}

void FoWriter::resumeFlow() {
    open_.push_back(*std::exchange(flow_, std::nullopt));
}

void FoWriter::pushImplied(std::string_view name) {
    if (name == "flow" && flow_)
        return resumeFlow();
    FoProperties properties;
    if (name == "flow")
        properties.set("flow-name", names_.flowFor(master_, ""));
    push(*FoModel::find(name), properties, true);
}

/// Of a cell in a row, so that it takes no place that another has.
void FoWriter::placeCell(Frame& cell, FoProperties& properties) {
    Frame& group = open_[open_.size() - 2];
    const TableGrid::Cell wanted{numberOf(properties["column-number"]),
                                 std::max(numberOf(properties["number-columns-spanned"]), 1),
                                 std::max(numberOf(properties["number-rows-spanned"]), 1)};
    const TableGrid::Cell placed = group.grid->place(wanted);
    if (placed.rows > 1)
        cell.rows = std::to_string(placed.rows);
    if (wanted.rows > 1 || numberOf(properties["number-rows-spanned"]) < 1)
        properties.erase("number-rows-spanned");
    if (numberOf(properties["number-columns-spanned"]) < 1)
        properties.erase("number-columns-spanned");
    else
        properties.set("number-columns-spanned", std::to_string(placed.columns));
    if (placed.column != wanted.column)
        properties.erase("column-number");
    if (open_.size() > 2) {
        int& used = open_[open_.size() - 3].usedColumns;
        used = std::max(used, group.grid->columns());
    }
}

/// Of a column, to what its table tells of all.
void FoWriter::addColumns(const FoProperties& properties) {
    Frame& table = open_.back();
    const int count = std::max(numberOf(properties["number-columns-repeated"]), 1);
    const int number = std::min(numberOf(properties["column-number"]), TableGrid::mostColumns);
    const int before = number > 0 ? number - 1 : table.columns;
    table.columns = std::max(table.columns, before + std::min(count, TableGrid::mostColumns));
    // Widths can be in proportion only where they are fixed.
    if (properties["column-width"].find("proportional-column-width") != std::string::npos)
        table.tableLayout = "fixed";
}

void FoWriter::setProperties(Frame& frame, FoProperties properties) {
    frame.start.append("<fo:").append(frame.object->name);
    if (open_.empty())
        frame.start += " xmlns:fo=\"http://www.w3.org/1999/XSL/Format\"";
    const bool isStray = !open_.empty() && open_.back().isImplied;
    frame.endsRow = isStray && properties["ends-row"] == "true";
    if (frame.object->name == "table-cell" && open_.size() > 1 && open_[open_.size() - 2].grid)
        placeCell(frame, properties);
    else if (frame.object->name == "table-column")
        addColumns(properties);
    for (const auto& [name, value] : properties) {
        if (name == "master-reference" && frame.object->name == "page-sequence")
            master_ = value;
        if (name == "id")
            frame.id = value;
        else if (name == "table-layout")
            frame.tableLayout = value;
        else if (!isStray || (name != "starts-row" && name != "ends-row"))
            frame.start.append(" ").append(name).append("=\"").append(escapedValue(value)) += '"';
    }
}

Chunks& FoWriter::sinkIn(Frame& parent, const Object& child) {
    return parent.groups.empty() ? *parent.sink : parent.groups[parent.object->groupOf(child.is)];
}

/// Writes the start tag, with those around it that wait for something to stand in them. An object
/// whose content has an order is written when it ends.
void FoWriter::write(std::size_t index) {
    Frame& frame = open_[index];
    if (frame.isWritten || !frame.groups.empty())
        return;
    frame.isWritten = true;
    writeAround(index);
    writeStart(frame, index);
    frame.sink->add(frame.object->holds() ? ">" : "/>");
    frame.begin = frame.sink->end();
    const bool isBlock = frame.object->is & FoModel::block;
    const bool isObject = frame.object->is & FoModel::inlineLevel && !frame.object->holds();
    if (index > 0 && (isBlock || isObject))
        noteShown(index - 1);
}

void FoWriter::writeAround(std::size_t index) {
    if (index == 0)
        return;
    write(index - 1);
    open_[index - 1].hasContent = true;
}

void FoWriter::writeStart(Frame& frame, std::size_t index) {
    if (index > 0 && !open_[index - 1].isLine())
        frame.sink->add("\n");
    frame.sink->add(frame.start);
    if (!frame.tableLayout.empty())
        frame.sink->add(" table-layout=\"" + escapedValue(frame.tableLayout) + "\"");
    if (!frame.rows.empty()) {
        frame.sink->add(" number-rows-spanned=\"");
        open_[index - 2].grid->note(frame.sink->addApart(frame.rows));
        frame.sink->add("\"");
    }
    if (!frame.id.empty() && ids_.insert(frame.id).second)
        frame.sink->add(" id=\"" + escapedValue(frame.id) + "\"");
}

void FoWriter::closeTo(std::size_t depth) {
    while (open_.size() > depth)
        close();
}

void FoWriter::close() {
    if (open_.back().object->name == "page-sequence" && flow_) {
        resumeFlow();
        close();
    }
    const std::size_t index = open_.size() - 1;
    const bool isWritten = open_[index].groups.empty()
                               ? (closeStream(index), open_[index].isWritten)
                               : writeGroups(index);
    Frame& frame = open_[index];
    if (frame.object->name == "table-row" && index > 0 && open_[index - 1].grid)
        open_[index - 1].grid->endRow(isWritten);
    if (frame.grid)
        frame.grid->endGroup();
    const bool endsRow = frame.endsRow;
    open_.pop_back();
    if (endsRow && open_.back().object->name == "table-row")
        close();
}

void FoWriter::closeStream(std::size_t index) {
    if (!open_[index].isWritten &&
        (open_[index].isImplied || open_[index].object->whenEmpty == WhenEmpty::Goes))
        return;
    write(index);
    Frame& frame = open_[index];
    if (!frame.heldPlaceholder.empty())
        notePlaceholder(index);
    if (frame.hidPlaceholder && !frame.shows)
        frame.sink->add(noBreakSpace);
    if (!frame.hasContent)
        frame.sink->add(FoModel::fillerOf(*frame.object, 0));
    if (!frame.object->holds())
        return;
    if (frame.sink->end() == frame.begin)
        return frame.sink->replaceLast("/>");
    frame.sink->add(frame.isLine() ? "</fo:" : "\n</fo:");
    frame.sink->add(frame.object->name);
    frame.sink->add(">");
}

/// Writes an object whose content has an order; false if there is nothing to write.
bool FoWriter::writeGroups(std::size_t index) {
    Frame& frame = open_[index];
    Kinds present = 0;
    for (std::size_t group = 0; group < frame.groups.size(); ++group)
        present |= frame.groups[group].empty() ? 0 : frame.object->groups[group];
    if (frame.object->essential ? !(present & frame.object->essential)
                                : !present && frame.object->whenEmpty == WhenEmpty::Goes)
        return false;
    fillGroups(frame);
    writeAround(index);
    if (index > 0 && frame.object->is & FoModel::block)
        noteShown(index - 1);
    writeStart(frame, index);
    frame.sink->add(">");
    for (Chunks& group : frame.groups)
        frame.sink->take(group);
    frame.sink->add("\n</fo:" + std::string(frame.object->name) + ">");
    return true;
}

void FoWriter::fillGroups(Frame& frame) {
    for (std::size_t group = 0; group < frame.groups.size(); ++group)
        if (frame.groups[group].empty())
            if (const auto filler = FoModel::fillerOf(*frame.object, group); !filler.empty())
                frame.groups[group].add(filler);
    const auto flowOf = [this](const std::string& master) {
        return "\n<fo:flow flow-name=\"" + escapedValue(names_.flowFor(master, "")) +
               "\">\n<fo:block/>\n</fo:flow>";
    };
    if (frame.object->name == "page-sequence" && frame.groups.back().empty())
        frame.groups.back().add(flowOf(master_));
    if (frame.columns > 0)
        for (int column = frame.columns; column < frame.usedColumns; ++column)
            frame.groups[1].add("\n<fo:table-column/>");
    if (frame.object->name != "root")
        return;
    const std::string& master = names_.masterFor("");
    if (frame.groups[0].empty())
        frame.groups[0].add("\n<fo:layout-master-set>\n<fo:simple-page-master master-name=\"" +
                            escapedValue(master) +
                            "\" page-width=\"210mm\" page-height=\"297mm\">\n<fo:region-body "
                            "margin=\"20mm\"/>\n</fo:simple-page-master>\n</fo:layout-master-set>");
    if (frame.groups[3].empty())
        frame.groups[3].add("\n<fo:page-sequence master-reference=\"" + escapedValue(master) +
                            "\">" + flowOf(master) + "\n</fo:page-sequence>");
}

/// Ends the item, and begins another in its place.
void FoWriter::splitItem() {
    writeGroups(open_.size() - 1);
    Frame& frame = open_.back();
    frame.groups.assign(frame.groups.size(), Chunks());
    frame.id.clear();
    frame.seen = 0;
}

void FoWriter::addText(std::string_view text) {
    if (isBlank(text)) {
        if (!open_.empty() && open_.back().isLine() && open_.back().isWritten)
            open_.back().sink->add(escaped(text));
        return;
    }
    Frame& innermost = open_.back();
    if (isPlaceholder(text) && innermost.isLine() && !innermost.hasContent &&
        innermost.object->is & FoModel::inlineLevel) {
        innermost.heldPlaceholder = text;
        return;
    }
    if (!makeRoomFor(FoModel::text))
        return;
    const std::size_t index = open_.size() - 1;
    write(index);
    open_[index].sink->add(escaped(text));
    open_[index].hasContent = true;
    noteShown(index);
}

void FoWriter::endStrayLine() {
    if (open_.back().isImplied && open_.back().object->name == "block")
        close();
}

void FoWriter::keepLine() {
    if (open_.back().isLine())
        notePlaceholder(open_.size() - 1);
}

void FoWriter::addForeignMarkup(std::string_view markup) {
    const std::size_t index = open_.size() - 1;
    write(index);
    open_[index].sink->add(markup);
    open_[index].hasContent = true;
}

void FoWriter::releasePlaceholder(Frame& frame) {
    if (frame.heldPlaceholder.empty())
        return;
    frame.sink->add(escaped(frame.heldPlaceholder));
    frame.heldPlaceholder.clear();
    noteShown(static_cast<std::size_t>(&frame - open_.data()));
}

/// An inline ends in which nothing stands but a placeholder: the line that it is in may show
/// nothing else.
void FoWriter::notePlaceholder(std::size_t index) {
    while (index > 0 && open_[index].object->is & FoModel::inlineLevel)
        --index;
    if (open_[index].isLine())
        open_[index].hidPlaceholder = true;
}

void FoWriter::noteShown(std::size_t index) {
    while (!open_[index].shows) {
        open_[index].shows = true;
        if (index == 0 || !(open_[index].object->is & FoModel::inlineLevel))
            return;
        --index;
    }
}
