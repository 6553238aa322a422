#pragma once

#include "RecordWire.h"

#include <forme/tables/TableRowGroupType.h>
#include <forme/view/Drawn.h>
#include <forme/view/EditingState.h>
#include <forme/view/ElementPlace.h>
#include <forme/view/StopSide.h>

#include <vector>

// How the answers to what hosts ask beside commands travel.

template <>
struct Wire<StopSide> {
    static constexpr const char* name = "side (0 before, 1 behind, 2 either)";
    static bool matches(const Json& value) {
        return Wire<int>::matches(value) && value.get<int>() >= 0 && value.get<int>() <= 2;
    }
    static StopSide read(const Json& value) { return static_cast<StopSide>(value.get<int>()); }
};

template <>
inline const std::vector<RecordField<ElementPlace>>& fieldsOf<ElementPlace>() {
    static const std::vector<RecordField<ElementPlace>> fields{
        field<&ElementPlace::start>("start"), field<&ElementPlace::name>("name"),
        field<&ElementPlace::path>("path"), field<&ElementPlace::around>("around")};
    return fields;
}
template <>
struct Wire<ElementPlace> : RecordWire<ElementPlace> {
    static inline const std::string name = describe("element place");
};

template <>
struct Wire<DrawnKind> {
    static bool matches(const Json& value) { return Wire<int>::matches(value); }
    static DrawnKind read(const Json& value) { return static_cast<DrawnKind>(value.get<int>()); }
    static Json write(DrawnKind value) { return static_cast<int>(value); }
};

template <>
inline const std::vector<RecordField<Drawn>>& fieldsOf<Drawn>() {
    static const std::vector<RecordField<Drawn>> fields{
        field<&Drawn::kind>("kind"), field<&Drawn::start>("start"), field<&Drawn::end>("end"),
        field<&Drawn::isStop>("isStop"), field<&Drawn::text>("text")};
    return fields;
}
template <>
struct Wire<Drawn> : RecordWire<Drawn> {
    static inline const std::string name =
        describe("drawn") +
        " (0 start, 1 end, 2 empty, 3 text, 4 character, 5 placeholder, 6 object, 7 hidden)";
};

template <>
inline const std::vector<RecordField<Format>>& fieldsOf<Format>() {
    static const std::vector<RecordField<Format>> fields{field<&Format::name>("name"),
                                                         field<&Format::value>("value"),
                                                         field<&Format::isMixed>("isMixed")};
    return fields;
}
template <>
struct Wire<Format> : RecordWire<Format> {
    static inline const std::string name = describe("format");
};

template <>
inline const std::vector<RecordField<TableState>>& fieldsOf<TableState>() {
    static const std::vector<RecordField<TableState>> fields{
        field<&TableState::canDeleteRow>("canDeleteRow"),
        field<&TableState::canDeleteColumn>("canDeleteColumn"),
        field<&TableState::canIncreaseColSpan>("canIncreaseColSpan"),
        field<&TableState::canIncreaseRowSpan>("canIncreaseRowSpan"),
        field<&TableState::canDecreaseColSpan>("canDecreaseColSpan"),
        field<&TableState::canDecreaseRowSpan>("canDecreaseRowSpan"),
        field<&TableState::canGroupCurrentRow>("canGroupCurrentRow"),
        field<&TableState::canInsertGroupAbove>("canInsertGroupAbove"),
        field<&TableState::canInsertGroupBelow>("canInsertGroupBelow")};
    return fields;
}

template <>
struct Wire<EditingState> {
    static inline const std::string name =
        "state {formats, list, isInTable, rowGroup, isInStaticContent, isInRepeat, hasSelection, "
        "isProtected, canUndo, canRedo, canCut, canPaste, canDeleteListItem, "
        "canDeleteSection, table}";
    static Json write(const EditingState& value) {
        return {{"formats", Wire<std::vector<Format>>::write(value.formats)},
                {"list", Wire<ListType>::write(value.list)},
                {"isInTable", value.isInTable},
                {"rowGroup", static_cast<int>(value.rowGroup)},
                {"isInStaticContent", value.isInStaticContent},
                {"isInRepeat", value.isInRepeat},
                {"hasSelection", value.hasSelection},
                {"isProtected", value.isProtected},
                {"canUndo", value.canUndo},
                {"canRedo", value.canRedo},
                {"canCut", value.canCut},
                {"canPaste", value.canPaste},
                {"canDeleteListItem", value.canDeleteListItem},
                {"canDeleteSection", value.canDeleteSection},
                {"table", value.table ? RecordWire<TableState>::write(*value.table) : Json()}};
    }
};
