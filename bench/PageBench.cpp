// Documents of 100 KB, 1 MB and 10 MB: what page set-up and the list of page sequences cost. Beside
// them the reading of the same text as a tree, which a dialog that did without the library would
// begin with.

#include "document/EditableDocumentBuffer.h"
#include "foundation/Encoder.h"
#include "foundation/SmartPtr.h"
#include "foundation/xml/DomParser.h"
#include "pages/LayoutMasterSetBuffer.h"
#include "pages/PageSequenceBuffer.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>

namespace {

std::wstring masters() {
    std::wstring text;
    for (const wchar_t* name : {L"title", L"left", L"right"})
        text += L"<fo:simple-page-master master-name=\"" + std::wstring(name) +
                L"\" page-width=\"210mm\" page-height=\"297mm\" margin=\"20mm 30mm\">\n"
                L"<fo:region-body margin=\"15mm\"/><fo:region-before extent=\"12mm\"/>\n"
                L"<fo:region-after extent=\"10mm\" display-align=\"after\"/>\n"
                L"</fo:simple-page-master>\n";
    return text;
}

std::wstring sequence() {
    std::wstring text = L"<fo:page-sequence master-reference=\"left\"><fo:static-content "
                        L"flow-name=\"xsl-region-before\"><fo:block>Report</fo:block>"
                        L"</fo:static-content><fo:flow flow-name=\"xsl-region-body\">\n";
    for (int i = 0; i < 100; ++i)
        text += L"<fo:block space-after=\"3mm\">The branches lent <fo:inline "
                L"font-weight=\"bold\">48,210</fo:inline> books.</fo:block>\n";
    return text + L"</fo:flow></fo:page-sequence>\n";
}

const Core::String& documentOf(int kilobytes) {
    static std::map<int, Core::String> made;
    Core::String& text = made[kilobytes];
    if (text.empty()) {
        std::wstring written = L"<fo:root xmlns:fo=\"http://www.w3.org/1999/XSL/Format\">\n"
                               L"<fo:layout-master-set>\n" +
                               masters() + L"</fo:layout-master-set>\n";
        const std::wstring one = sequence();
        while (written.size() + one.size() < static_cast<std::size_t>(kilobytes) * 1000)
            written += one;
        text = Core::String(written + L"</fo:root>");
    }
    return text;
}

using Buffer = SmartPtr<EditableDocumentBuffer>;

Buffer bufferOf(int kilobytes) {
    Buffer buffer(new EditableDocumentBuffer);
    buffer->setRootElement(L"fo:root");
    buffer->addEditableElement(L"fo:block");
    buffer->setContent(documentOf(kilobytes), true);
    return buffer;
}

void readTheWholeText(benchmark::State& state) {
    const Buffer buffer = bufferOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const Core::ByteArray bytes = Core::Encoder::convertStringToUTF8(buffer->getContent());
        Xml::DomParser parser;
        parser.parseMemory(bytes.ptr(), bytes.size());
        benchmark::DoNotOptimize(parser.getDocument());
    }
}

void openMasters(benchmark::State& state) {
    const Buffer buffer = bufferOf(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(LayoutMasterSetBuffer(buffer.get()).getSimplePageMasterCount());
}

/// What the dialog does from its opening to "OK".
void pageSetUp(benchmark::State& state) {
    const Buffer buffer = bufferOf(static_cast<int>(state.range(0)));
    int width = 200;
    for (auto _ : state) {
        LayoutMasterSetBuffer masters(buffer.get());
        for (const Core::String& name : masters.getAllSimplePageMasters())
            benchmark::DoNotOptimize(masters.getPageRegionsData(name));
        masters.setPageDimensions(L"left", Core::String::formatS(width++) + L"mm", L"297mm");
        masters.commitChangesToEditableBuffer();
    }
}

void openSequences(benchmark::State& state) {
    const Buffer buffer = bufferOf(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(PageSequenceBuffer(buffer.get()).getPageSequenceInfo());
}

void addSequence(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        const Buffer buffer = bufferOf(static_cast<int>(state.range(0)));
        state.ResumeTiming();
        PageSequenceBuffer sequences(buffer.get());
        sequences.addNewPageSequence(PageMasterData(L"left"));
        sequences.commitChangesToEditableBuffer();
    }
}

void undoAddedSequence(benchmark::State& state) {
    const Buffer buffer = bufferOf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        PageSequenceBuffer sequences(buffer.get());
        sequences.addNewPageSequence(PageMasterData(L"left"));
        sequences.commitChangesToEditableBuffer();
        state.ResumeTiming();
        buffer->undo();
    }
}

void sizes(benchmark::internal::Benchmark* bench) { // in kilobytes
    bench->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
}

} // namespace

BENCHMARK(readTheWholeText)->Name("pages/readTheWholeText")->Apply(sizes);
BENCHMARK(openMasters)->Name("pages/openMasters")->Apply(sizes);
BENCHMARK(pageSetUp)->Name("pages/pageSetUp")->Apply(sizes);
BENCHMARK(openSequences)->Name("pages/openSequences")->Apply(sizes);
BENCHMARK(addSequence)->Name("pages/addSequence")->Apply(sizes);
BENCHMARK(undoAddedSequence)->Name("pages/undo")->Apply(sizes);
