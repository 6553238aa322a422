// Borders around all cells of a table: drawn, removed and asked for.

#include "document/EditableDocumentBuffer.h"
#include "foundation/SmartPtr.h"
#include "tables/EditableTableBuffer.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using Operation = EditableTableBuffer::BordersOperation;

constexpr int columns = 8;

SmartPtr<EditableDocumentBuffer> documentWithTable(long long rows, const wchar_t* attributes) {
    const std::wstring cell = std::wstring(L"<fo:table-cell") + attributes +
                              L"><fo:block>cell</fo:block></fo:table-cell>";
    std::wstring row = L"<fo:table-row>";
    for (int column = 0; column < columns; ++column)
        row += cell;
    row += L"</fo:table-row>\n";
    std::wstring text = L"<qfd:document xmlns:qfd=\"urn:forme:qfd/1.0\" "
                        L"xmlns:fo=\"http://www.w3.org/1999/XSL/Format\"><fo:page-sequence>"
                        L"<fo:flow flow-name=\"body\"><fo:table><fo:table-body>\n";
    for (long long at = 0; at < rows; ++at)
        text += row;
    text += L"</fo:table-body></fo:table></fo:flow></fo:page-sequence></qfd:document>";
    SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    document->setRootElement(L"qfd:document");
    document->addEditableElement(L"fo:block");
    document->setContent(Core::String(text), true);
    document->moveCaretHome(false);
    document->moveCaretToEnd(true);
    return document;
}

void process(benchmark::State& state, const wchar_t* attributes, Operation operation) {
    const auto document = documentWithTable(state.range(0), attributes);
    const auto table = document->getEditableTableBuffer(-1);
    for (auto _ : state) {
        state.PauseTiming();
        table->updateTableBuffer();
        state.ResumeTiming();
        if (!table->processSelectedCells(CellBorderType::All, operation))
            state.SkipWithError("nothing was done");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0) * columns);
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(10)->Arg(1000)->Arg(20000)->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK_CAPTURE(process, Draw, L"", Operation::Set)->Apply(sizes);
BENCHMARK_CAPTURE(process, Dissolve, L" border=\"1pt solid red\"", Operation::Remove)->Apply(sizes);
BENCHMARK_CAPTURE(process, Ask, L" border=\"1pt solid red\"", Operation::Query)->Apply(sizes);
