#include "tables/RowGroups.h"

#include "foundation/ObjectId.h"
#include "foundation/values/XPathHelpers.h"
#include "tables/CellContent.h"
#include "tables/EditableTableBuffer.h"
#include "tables/RowContent.h"
#include "tables/RowMarks.h"
#include "tables/TableRows.h"

#include <algorithm>

using Core::String;
using Xml::Element;
using Type = TableRowGroupType;

namespace {

/// Whether the row says that it heads a group; also one that is repeated no more goes on doing so.
bool saysHeading(const Element& row) {
    return row.get_attribute(L"is-group-heading");
}

bool spansRows(const Element* cell) {
    return cell && TableTree::rowSpanOf(*cell) > 1;
}

/// Makes the row the heading of a new group; answers the group's id.
String makeHeading(Element& row, const RowGroups::Group& group) {
    String id = ObjectId::generate();
    RowMarks::makeRepeated(row);
    RowMarks::set(row, L"xpath", group.xpath, {});
    RowMarks::set(row, L"group-by", group.groupBy, {});
    RowMarks::set(row, L"is-group-heading", L"true", {});
    RowMarks::set(row, L"id", id, L"fo");
    if (group.merge)
        RowMarks::set(row, L"merge-content", L"true", {});
    return id;
}

} // namespace

Element* RowGroups::row() const {
    return model_.rowAt(caret_.caret.group, caret_.caret.row);
}

/// Null where the caret has no cell or its cell stands in no row.
Element* RowGroups::rowToChange() const {
    Element* found = row();
    return found && TableTree::isRow(*found) && model_.cellAt(caret_.caret) ? found : nullptr;
}

Element* RowGroups::heading() const {
    Element* found = row();
    if (!found || RowMarks::isHeading(*found))
        return found;
    return RowMarks::isMember(*found) ? headingBefore() : nullptr;
}

Element* RowGroups::headingBefore() const {
    const Element* from = row();
    Element* before = from ? RowMarks::previous(*from) : nullptr;
    while (before && !saysHeading(*before))
        before = RowMarks::previous(*before);
    return before;
}

String RowGroups::path() const {
    const Element* from = row();
    const Element* head = from && RowMarks::isMember(*from) ? headingBefore() : nullptr;
    const String path = head ? RowMarks::valueOf(*head, L"xpath") : String();
    return path.empty() ? String(L"/") : path;
}

std::optional<RowGroups::Group> RowGroups::group() const {
    const Element* from = row();
    const Element* head = from && RowMarks::isHeading(*from) ? from : headingBefore();
    if (!head)
        return std::nullopt;
    return Group{RowMarks::valueOf(*head, L"xpath"), RowMarks::valueOf(*head, L"group-by"),
                 RowMarks::valueOf(*head, L"merge-content").compareNoCase(L"true") == 0};
}

bool RowGroups::isLastMember() const {
    const Element* member = row();
    if (!member || !RowMarks::isMember(*member))
        return false;
    const Element* next = RowMarks::next(*member);
    return !next || !RowMarks::isMember(*next);
}

void RowGroups::insert(bool above, const Group& group) {
    Element* from = model_.cellAt(caret_.caret) ? table_.rowOfItsOwn(caret_.caret) : nullptr;
    if (!from)
        return;
    Element& copy = RowContent::copyBehind(*from); // which above is the old row from now on
    Element& head = above ? *from : copy;
    if (above) {
        RowContent::renew(head);
        moveCaretDown(2);
    }
    CellContent::removeIds(head);
    const String id = makeHeading(head, group);
    Element& member = RowContent::copyBehind(head);
    RowMarks::makePlain(member);
    RowMarks::remove(member, L"id");
    RowMarks::set(member, L"parent-group", id, L"qfd");
}

void RowGroups::convert(const Group& group, const String& rowPath) {
    Element* head = model_.cellAt(caret_.caret) ? table_.rowOfItsOwn(caret_.caret) : nullptr;
    if (!head)
        return;
    Element& member = RowContent::copyBehind(*head); // which is the old row from now on
    RowContent::renew(*head);
    moveCaretDown(1);
    const String id = makeHeading(*head, group);
    RowMarks::remove(*head, L"parent-group");
    RowMarks::remove(*head, L"sort");
    RowMarks::set(member, L"parent-group", id, L"qfd");
    RowMarks::set(member, L"xpath", rowPath, L"qfd");
}

void RowGroups::moveCaretDown(int rows) {
    if (caret_.end.row == caret_.caret.row)
        caret_.end.row += rows;
    caret_.caret.row += rows;
}

void RowGroups::join(const String& groupPath) {
    Element* joining = rowToChange();
    const String id = joining ? groupBefore(*joining) : String();
    if (id.empty())
        return;
    if (RowMarks::isRepeated(*joining)) {
        const Element* head = headingBefore();
        const String base = head ? RowMarks::valueOf(*head, L"xpath") : String();
        const String own = RowMarks::valueOf(*joining, L"xpath");
        RowMarks::set(*joining, L"xpath",
                      XPathHelpers::getRelativeXPath(
                          XPathHelpers::composeXPath(groupPath, base),
                          XPathHelpers::composeXPath(groupPath, own.empty() ? String(L"/") : own)),
                      L"qfd");
    }
    RowMarks::set(*joining, L"parent-group", id, L"qfd");
}

/// The id of the group that the row before heads or belongs to.
String RowGroups::groupBefore(const Element& row) const {
    const Element* before = RowMarks::previous(row);
    if (!before)
        return {};
    return RowMarks::valueOf(*before, saysHeading(*before) ? L"id" : L"parent-group");
}

void RowGroups::leave(const String& from, const String& to) {
    Element* leaving = rowToChange();
    if (!leaving || !RowMarks::isMember(*leaving))
        return;
    const String own = RowMarks::valueOf(*leaving, L"xpath");
    if (RowMarks::isRepeated(*leaving) && !own.empty())
        RowMarks::set(*leaving, L"xpath",
                      XPathHelpers::getRelativeXPath(to, XPathHelpers::composeXPath(from, own)),
                      L"qfd");
    RowMarks::remove(*leaving, L"parent-group");
}

void RowGroups::edit(const Group& group) {
    Element* head = rowToChange() ? heading() : nullptr;
    if (!head)
        return;
    RowMarks::set(*head, L"xpath", group.xpath, L"qfd");
    RowMarks::set(*head, L"group-by", group.groupBy, L"qfd");
    RowMarks::set(*head, L"merge-content", group.merge ? L"true" : L"false", L"qfd");
}

void RowGroups::remove() {
    const Element* from = rowToChange();
    if (!from)
        return;
    if (RowMarks::isHeading(*from)) {
        if (caret_.caret.group == Type::Body && model_.group(Type::Body).rowCount() == 1)
            return;
        caret_.end = caret_.caret;
        TableRows(table_).removeSelected();
    } else if (Element* head = heading()) {
        removeHeading(*head);
    }
}

/// Caret and selection stay on their rows.
void RowGroups::removeHeading(Element& heading) {
    const TableTree::Elements& rows = model_.group(caret_.caret.group).rows;
    const auto number =
        static_cast<int>(std::find(rows.begin(), rows.end(), &heading) - rows.begin());
    RowMarks::freeMembers(heading);
    heading.get_parent()->remove_child(&heading);
    for (CellPlace* place : {&caret_.end, &caret_.caret})
        if (place->group == caret_.caret.group && place->row > number)
            --place->row;
}

bool RowGroups::canJoin() const {
    const Element* joining = rowToChange();
    const Element* before =
        joining && !RowMarks::isMember(*joining) ? RowMarks::previous(*joining) : nullptr;
    return before && (saysHeading(*before) || RowMarks::isMember(*before));
}

/// Whether a cell that covers a coordinate of the row spans rows, be it that it ends there.
bool RowGroups::reachIntoOthers(int row) const {
    for (int column = 0; column < table_.columnCount; ++column)
        if (spansRows(model_.cellAt({caret_.caret.group, row, column})))
            return true;
    return false;
}

bool RowGroups::canInsertAbove() const {
    if (!model_.cellAt(caret_.caret) || !row())
        return false;
    const TableTree::Elements cells = TableTree::cellsOf(*row());
    return std::none_of(cells.begin(), cells.end(), spansRows) &&
           !reachIntoOthers(caret_.caret.row - 1);
}

bool RowGroups::canInsertBelow() const {
    return model_.cellAt(caret_.caret) && row() && !reachIntoOthers(caret_.caret.row);
}

bool EditableTableBuffer::currentRowIsInGroup() const {
    return isRowInGroup(table_->caretRow());
}

bool EditableTableBuffer::isRowInGroup(const Element* row) {
    return row && RowMarks::isMember(*row);
}

bool EditableTableBuffer::currentRowIsGroupHeader() const {
    const Element* row = table_->caretRow();
    return row && RowMarks::isHeading(*row);
}

bool EditableTableBuffer::currentRowIsLastFromGroup() const {
    return RowGroups(*table_).isLastMember();
}

Element* EditableTableBuffer::getRowGroupHeader() const {
    return RowGroups(*table_).heading();
}

String EditableTableBuffer::getGroupXPath() const {
    return RowGroups(*table_).path();
}

String EditableTableBuffer::getPreviousGroupXpath() const {
    const Element* heading = RowGroups(*table_).headingBefore();
    return heading ? RowMarks::valueOf(*heading, L"xpath") : String();
}

void EditableTableBuffer::getGroupProperties(String& xpath, String& groupBy, bool& merge) const {
    const auto group = RowGroups(*table_).group();
    if (!group)
        return;
    xpath = group->xpath;
    groupBy = group->groupBy;
    merge = group->merge;
}

void EditableTableBuffer::insertGroupRow(bool above, const String& xpath, const String& groupBy,
                                         bool merge) {
    table_->changeFresh([&] { RowGroups(*table_).insert(above, {xpath, groupBy, merge}); });
}

void EditableTableBuffer::convertToGroup(const String& xpath, const String& groupBy, bool merge,
                                         const String& rowXPath) {
    table_->changeFresh([&] { RowGroups(*table_).convert({xpath, groupBy, merge}, rowXPath); });
}

void EditableTableBuffer::addCurrentRowToGroup(const String& groupXPath) {
    table_->changeFresh([&] { RowGroups(*table_).join(groupXPath); });
}

void EditableTableBuffer::ungroupCurrentRow(const String& fromXPath, const String& toXPath) {
    table_->changeFresh([&] { RowGroups(*table_).leave(fromXPath, toXPath); });
}

void EditableTableBuffer::editGroup(const String& xpath, const String& groupBy, bool merge) {
    RowGroups(*table_).edit({xpath, groupBy, merge});
}

void EditableTableBuffer::deleteGroup() {
    RowGroups(*table_).remove();
    table_->rebuild();
}

void EditableTableBuffer::deleteGroupReferences(Element* heading) {
    if (heading)
        RowMarks::freeMembers(*heading);
}

bool EditableTableBuffer::canGroupCurrentRow() const {
    return RowGroups(*table_).canJoin();
}

bool EditableTableBuffer::canInsertGroupAbove() const {
    return RowGroups(*table_).canInsertAbove();
}

bool EditableTableBuffer::canInsertGroupBelow() const {
    return RowGroups(*table_).canInsertBelow();
}
