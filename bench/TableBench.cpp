// A table of 8 columns, from ten rows to twenty thousand: what a host's table menu does with it.

#include "document/EditableDocumentBuffer.h"
#include "foundation/Exception.h"
#include "foundation/SmartPtr.h"
#include "tables/EditableTableBuffer.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

constexpr int columns = 8;

std::wstring rowsOfNumbers(int rows) {
    std::wstring text;
    for (int row = 0; row < rows; ++row) {
        text += L"<fo:table-row>";
        for (int column = 0; column < columns; ++column)
            text += L"<fo:table-cell padding=\"1mm\"><fo:block>" + std::to_wstring(row * column) +
                    L"</fo:block></fo:table-cell>";
        text += L"</fo:table-row>\n";
    }
    return text;
}

std::wstring documentWithTable(int rows) {
    std::wstring text =
        L"<qfd:document xmlns:qfd=\"urn:forme:qfd/1.0\" "
        L"xmlns:fo=\"http://www.w3.org/1999/XSL/Format\"><fo:page-sequence><fo:flow "
        L"flow-name=\"xsl-region-body\"><fo:block>Before</fo:block><fo:table>";
    for (int column = 0; column < columns; ++column)
        text += L"<fo:table-column column-width=\"20mm\"/>";
    return text + L"<fo:table-body>" + rowsOfNumbers(rows) +
           L"</fo:table-body></fo:table><fo:block>Behind</fo:block></fo:flow></fo:page-sequence>"
           L"</qfd:document>";
}

using Buffer = SmartPtr<EditableDocumentBuffer>;

Buffer bufferWithTable(int rows) {
    Buffer buffer(new EditableDocumentBuffer);
    buffer->setRootElement(L"qfd:document");
    buffer->addEditableElement(L"fo:block");
    buffer->setContent(documentWithTable(rows).c_str(), true);
    return buffer;
}

/// The caret goes into the first cell of the row.
void enterRow(EditableDocumentBuffer& buffer, int row) {
    const int table = buffer.getContent().find(L"<fo:table>", 0);
    const int body = buffer.getTableRowGroupPosition(table, TableRowGroupType::Body);
    const int start = buffer.getRowPosFromTableRowGroup(body, row);
    buffer.setCaretPos(false, buffer.getContent().find(L"<fo:block>", start) + 10);
}

Buffer bufferInTheMiddle(int rows) {
    Buffer buffer = bufferWithTable(rows);
    enterRow(*buffer, rows / 2);
    return buffer;
}

EditableTableBuffer& tableOf(EditableDocumentBuffer& buffer) {
    return *buffer.getEditableTableBuffer(-1);
}

/// Measures `act` alone, each time on a fresh document that `prepare` was given. That no command
/// was without effect is seen by the text.
template <typename Prepare, typename Act>
void measure(benchmark::State& state, Prepare prepare, Act act, bool changesText) {
    const int rows = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        Buffer buffer = bufferInTheMiddle(rows);
        prepare(*buffer);
        const Core::String before(buffer->getContent().view());
        state.ResumeTiming();
        act(*buffer);
        state.PauseTiming();
        if ((buffer->getContent() != before) != changesText)
            state.SkipWithError("the command did not do its work");
        buffer = Buffer();
        state.ResumeTiming();
    }
    state.counters["rows"] = rows;
}

void nothing(EditableDocumentBuffer&) {}

void insertRow(EditableDocumentBuffer& buffer) {
    tableOf(buffer).insertRow(false);
}

void commit(EditableDocumentBuffer& buffer) {
    tableOf(buffer).commitChangesToEditableBuffer();
}

void openTable(benchmark::State& state) {
    measure(
        state, nothing, [](EditableDocumentBuffer& buffer) { tableOf(buffer); }, false);
}

void insertRowInTheMiddle(benchmark::State& state) {
    const auto open = [](EditableDocumentBuffer& buffer) { tableOf(buffer); };
    measure(state, open, insertRow, false);
}

void commitRow(benchmark::State& state) {
    measure(state, insertRow, commit, true);
}

void undoRow(benchmark::State& state) {
    const auto prepare = [](EditableDocumentBuffer& buffer) {
        insertRow(buffer);
        commit(buffer);
    };
    measure(
        state, prepare, [](EditableDocumentBuffer& buffer) { buffer.undo(); }, true);
}

/// Time per cell is what matters here: it is the same in each table.
void tabThroughAllCells(benchmark::State& state) {
    const int rows = static_cast<int>(state.range(0));
    const Buffer buffer = bufferInTheMiddle(rows);
    long long tabs = 0;
    for (auto _ : state) {
        enterRow(*buffer, 0);
        for (int before = -1; before != buffer->getCaretPos(); ++tabs) {
            before = buffer->getCaretPos();
            buffer->moveCaretNextCell(false, false);
        }
    }
    if (tabs != state.iterations() * rows * columns)
        state.SkipWithError("not every cell was visited once");
    state.SetItemsProcessed(tabs);
    state.counters["rows"] = rows;
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(10)->Arg(1000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(5);
}

} // namespace

BENCHMARK(openTable)->Name("table/open")->Apply(sizes);
BENCHMARK(insertRowInTheMiddle)->Name("table/insertRow")->Apply(sizes);
BENCHMARK(commitRow)->Name("table/commit")->Apply(sizes);
BENCHMARK(undoRow)->Name("table/undo")->Apply(sizes);
BENCHMARK(tabThroughAllCells)->Name("table/tab")->Apply(sizes);
