// Rows, columns and spans of tables.

#include "checks/Check.h"
#include "checks/Keys.h"
#include "tables/EditableTableBuffer.h"

using namespace Keys;
using Buffer = EditableDocumentBuffer;
using Tables = EditableTableBuffer;

namespace {

/// One command of a table menu on the table around the caret.
template <typename Command>
void editTable(Buffer& document, Command command) {
    const auto table = document.getEditableTableBuffer(-1);
    table->updateTableBuffer();
    command(*table);
    table->commitChangesToEditableBuffer();
}

template <bool above>
void insertRow(Buffer& document) {
    editTable(document, [](Tables& table) { table.insertRow(above); });
}

template <auto command, auto... arguments>
void onTable(Buffer& document) {
    editTable(document, [](Tables& table) { (table.*command)(arguments...); });
}

void readTable(Buffer& document) {
    document.getEditableTableBuffer(-1)->updateTableBuffer();
}

void commitUntouched(Buffer& document) {
    document.getEditableTableBuffer(-1)->commitChangesToEditableBuffer();
}

void tab(Buffer& document) {
    document.moveCaretNextCell(false, true);
}

constexpr Check tableChecks[] = {
    {L"reading changes nothing",
     L"<T ><D><R><C><B>a|</B></C></R></D></T >",
     {readTable, commitUntouched},
     L"<T ><D><R><C><B>|a</B></C></R></D></T >"},
    {L"a row above",
     L"<T><D><R><C><B>a|</B></C></R></D></T>",
     {insertRow<true>},
     L"<T>\n<D><R><C><B>_</B></C></R><R><C><B>|a</B></C></R></D></T>"},
    {L"a row below",
     L"<T><D><R><C><B>a|</B></C></R></D></T>",
     {insertRow<false>},
     L"<T>\n<D><R><C><B>|a</B></C></R><R><C><B>_</B></C></R></D></T>"},
    {L"a row is deleted",
     L"<T><D><R><C><B>a|</B></C></R><R><C><B>b</B></C></R></D></T>",
     {onTable<&Tables::deleteRows, true>},
     L"<T>\n<D><R><C><B>|b</B></C></R></D></T>"},
    {L"a header comes first",
     L"<T><D><R><C><B>a|</B></C></R></D></T>",
     {onTable<&Tables::insertHeaderRow>},
     L"<T>\n<H><R><C><B>_</B></C></R></H><D><R><C><B>|a</B></C></R></D></T>"},
    {L"a column behind",
     L"<T><D><R><C><B>a|</B></C><C><B>b</B></C></R></D></T>",
     {onTable<&Tables::insertColumn, true>},
     L"<T>\n<fo:table-column/><fo:table-column/><fo:table-column/><D><R><C><B>|a</B></C><C><B>_</"
     L"B></C><C><B>b</B></C></R></D></T>"},
    {L"a column is deleted",
     L"<T><D><R><C><B>a|</B></C><C><B>b</B></C></R></D></T>",
     {onTable<&Tables::deleteColumn>},
     L"<T>\n<D><R><C><B>|b</B></C></R></D></T>"},
    {L"a cell spans two columns",
     L"<T><D><R><C><B>a|</B></C><C><B>b</B></C></R></D></T>",
     {onTable<&Tables::increaseColSpan>},
     L"<T>\n<D><R><C number-columns-spanned=\"2\"><B>|a</B><B>b</B></C></R></D></T>"},
    {L"and one again",
     L"<T><D><R><C number-columns-spanned=\"2\"><B>a|</B></C></R></D></T>",
     {onTable<&Tables::decreaseColSpan>},
     L"<T>\n<D><R><C><B>|a</B></C><C><B>_</B></C></R></D></T>"},
    {L"a column within a span widens it",
     L"<T><D><R><C "
     L"number-columns-spanned=\"2\"><B>a</B></C></R><R><C><B>b|</B></C><C><B>c</B></C></R></D></T>",
     {onTable<&Tables::insertColumn, true>},
     L"<T>\n<fo:table-column/><fo:table-column/><fo:table-column/><D><R><C "
     L"number-columns-spanned=\"3\"><B>a</B></C></R><R><C><B>|b</B></C><C><B>_</B></C><C><B>c</B></"
     L"C></R></D></T>"},
    {L"a cell spans two rows",
     L"<T><D><R><C><B>a|</B></C></R><R><C><B>b</B></C></R></D></T>",
     {onTable<&Tables::increaseRowSpan>},
     L"<T>\n<D><R><C number-rows-spanned=\"2\"><B>|a</B><B>b</B></C></R><R/></D></T>"},
    {L"Tab goes from cell to cell",
     L"<T><D><R><C><B>a|</B></C><C><B>b</B></C></R><R><C><B>c</B></C></R></D></T>",
     {tab, tab},
     L"<T><D><R><C><B>a</B></C><C><B>b</B></C></R><R><C><B>|c</B></C></R></D></T>"},
    {L"Tab in the last cell makes a row",
     L"<T><D><R><C><B>a|</B></C></R></D></T>",
     {tab},
     L"<T>\n<D><R><C><B>a</B></C></R><R><C><B>|_</B></C></R></D></T>"},
    {L"Enter stays in a cell",
     L"<T><D><R><C><B>a|b</B></C></R></D></T>",
     {enter},
     L"<T><D><R><C><B>a</B>\n<B>|b</B></C></R></D></T>"},
};

} // namespace

std::span<const Check> Checks::ofTables() {
    return tableChecks;
}
