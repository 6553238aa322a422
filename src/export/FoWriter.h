#pragma once

#include "export/Chunks.h"
#include "export/FoModel.h"
#include "export/FoProperties.h"
#include "export/PageNames.h"
#include "export/TableGrid.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Writes formatting objects so that each stands where it may and holds what it must, whatever is
/// given: what comes in another order than it has to is put in order, what is missing is filled in,
/// and what says nothing is left out. Texts are UTF-8.
class FoWriter {
public:
    enum class Place {
        Found,
        None,   ///< what stands in it may have one
        Refused ///< it goes with all that stands in it
    };

    /// The names must outlive the writer.
    explicit FoWriter(const PageNames& names) : names_(names) {}

    /// How many objects are open, those included that were not asked for.
    std::size_t depth() const { return open_.size(); }
    /// Opens an object in the last that is open, or in one around that. The first is the root.
    Place open(const FoModel::Object& object, FoProperties properties);
    void closeTo(std::size_t depth);
    /// Leaves the innermost object open for more, until something comes that has no place in it.
    /// A flow is gone on with by a further one.
    void leaveOpen() { open_.back().isImplied = true; }
    void addText(std::string_view text);
    /// Ends a line that was not asked for, as where a block begins or ends that is not written.
    void endStrayLine();

    /// Something that is not shown stands in the line, which does not go for that.
    void keepLine();

    bool takesForeignMarkup() const {
        return !open_.empty() && open_.back().holds & FoModel::foreign;
    }
    void addForeignMarkup(std::string_view markup);

    /// The document, once all is closed.
    std::string document() const { return document_.joined(); }

    static std::string escaped(std::string_view text);
    static std::string escapedValue(std::string_view value);

private:
    struct Frame {
        const FoModel::Object* object;
        FoModel::Kinds holds;
        std::string_view implied;
        std::string start; ///< the start tag up to its properties, without its ">"
        std::string id;
        std::string rows;              ///< that a cell reaches over, if more than one
        Chunks* sink = nullptr;        ///< where the object itself goes
        std::vector<Chunks> groups;    ///< what stands in it, if that has an order
        FoModel::Kinds seen = 0;       ///< of those that may come once
        std::set<std::string> markers; ///< their classes
        std::optional<TableGrid> grid; ///< of a group of rows
        int columns = 0;               ///< that a table has, as it says
        int usedColumns = 0;           ///< that cells of it take
        std::string tableLayout;
        Chunks::Mark begin;          ///< where the content begins
        std::string heldPlaceholder; ///< of an inline in which nothing else stands as yet
        bool isImplied = false;      ///< nobody asked for it
        bool isWritten = false;
        bool hasContent = false;
        bool shows = false;          ///< a reader sees something in it
        bool hidPlaceholder = false; ///< one that was held goes, and may be its only content
        bool endsRow = false;

        bool isLine() const { return FoModel::isMixed(holds); }
    };

    bool makeRoomFor(FoModel::Kinds child);
    bool isWithin(std::string_view object) const;
    Place limitOf(const FoModel::Object& object) const;
    Place openMarker(const FoModel::Object& object, const FoProperties& properties);
    const FoModel::Object* onceOf(const FoModel::Object& object);
    void push(const FoModel::Object& object, const FoProperties& properties, bool isImplied);
    FoModel::Kinds holdsOf(const FoModel::Object& object, bool isImplied) const;
    void pushImplied(std::string_view name);
    void setProperties(Frame& frame, FoProperties properties);
    void placeCell(Frame& cell, FoProperties& properties);
    void addColumns(const FoProperties& properties);
    void resumeFlow();
    Chunks& sinkIn(Frame& parent, const FoModel::Object& child);
    void write(std::size_t frame);
    void writeStart(Frame& frame, std::size_t index);
    void writeAround(std::size_t frame);
    void close();
    void closeStream(std::size_t index);
    bool writeGroups(std::size_t index);
    void fillGroups(Frame& frame);
    void splitItem();
    void releasePlaceholder(Frame& frame);
    void notePlaceholder(std::size_t frame);
    void noteShown(std::size_t frame);

    const PageNames& names_;
    std::vector<Frame> open_;
    Chunks document_;
    std::set<std::string> ids_;
    std::string master_;        // of the page sequence
    std::optional<Frame> flow_; // of the page sequence, if other content stands behind it
};
