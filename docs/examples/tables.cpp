// Puts a table at the end of a document, fills it by Tab, and does what a table menu does.
#include <forme/document/EditableDocumentBuffer.h>
#include <forme/foundation/Encoder.h>
#include <forme/tables/EditableTableBuffer.h>

#include <iostream>
#include <string>

namespace {

std::wstring repeated(int count, const std::wstring& text) {
    std::wstring all;
    while (count-- > 0)
        all += text;
    return all;
}

/// A table enters a document as markup. An empty cell holds a block with a non-breaking space,
/// where the caret can stand.
void insertTable(EditableDocumentBuffer& document, int rows, int columns) {
    const std::wstring cell = L"<fo:table-cell><fo:block>&#x00A0;</fo:block></fo:table-cell>";
    const std::wstring row = L"<fo:table-row>" + repeated(columns, cell) + L"</fo:table-row>";
    const std::wstring column = L"<fo:table-column column-width=\"proportional-column-width(1)\"/>";
    document.insertText((L"<fo:table table-layout=\"fixed\" width=\"100%\">" +
                         repeated(columns, column) + L"<fo:table-body>" + repeated(rows, row) +
                         L"</fo:table-body></fo:table>")
                            .c_str(),
                        true, false);
}

/// One command of the table menu on the table around the caret; one undo step.
template <typename Command>
void onTable(EditableDocumentBuffer& document, Command command) {
    const auto table = document.getEditableTableBuffer(-1);
    if (!table)
        return; // the menu is grey where `caretIsInsideTable` says no
    // So that questions are about the cell where the caret is now.
    table->updateTableBuffer();
    command(*table);
    table->commitChangesToEditableBuffer();
}

void typeAndTab(EditableDocumentBuffer& document, const Core::String& text) {
    document.insertText(text, false, false);
    document.moveCaretNextCell(false, true);
}

void mergeWithNext(EditableTableBuffer& table) {
    if (table.canIncreaseColSpan())
        table.increaseColSpan();
}

void frame(EditableTableBuffer& table) {
    table.setBordersInfo({L"0.5pt", L"#203040", L""});
    table.setBorderToSelectedCells(CellBorderType::All);
}

/// Selects the cells from the table's first to the caret's: a selection that begins before a table
/// takes them in.
void selectCellsUpToHere(EditableDocumentBuffer& document) {
    const int here = document.getCaretPos();
    document.setCaretPos(false, document.getEditableTableBuffer(-1)->getDocumentBufferStart());
    document.setCaretPos(true, here);
}

void setUp(EditableDocumentBuffer& document) {
    document.setRootElement(L"qfd:document");
    document.addEditableElement(L"fo:block");
    document.addEditableElement(L"fo:inline");
    document.addInlineEditableElement(L"fo:inline");
}

} // namespace

int main(int argc, char** argv) try {
    if (argc != 3)
        throw Core::Exception(L"usage: tables IN OUT");
    const SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUp(*document);
    document->setContentFromFile(Core::Encoder::convertUTF8ToString(argv[1]));

    document->moveCaretToEnd(false);
    insertTable(*document, 1, 2);
    document->moveCaretLeft(false, false, true); // from behind the table into its last cell
    document->moveCaretPrevCell(false);
    for (const wchar_t* text : {L"Clock", L"Year", L"Regulator", L"1784", L"Carriage clock"})
        typeAndTab(*document, text); // Tab in the last cell adds a row

    document->insertText(L"1851", false, false);
    onTable(*document, [](EditableTableBuffer& table) { table.insertColumn(true); });
    onTable(*document, mergeWithNext);
    selectCellsUpToHere(*document);
    onTable(*document, frame);
    onTable(*document, [](EditableTableBuffer& table) {
        std::cout << table.getRowCount(TableRowGroupType::Body) << " rows, "
                  << table.getColumnCount() << " columns\n";
    });

    document->saveToFile(Core::Encoder::convertUTF8ToString(argv[2]), DocumentEncoding::Utf8);
} catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
}
