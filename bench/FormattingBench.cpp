// All of a document made bold, and taken back.

#include "GeneratedDocument.h"

#include "document/EditableDocumentBuffer.h"
#include "foundation/SmartPtr.h"

#include <benchmark/benchmark.h>

namespace {

constexpr long long kilobytes = 1024;

SmartPtr<EditableDocumentBuffer> bufferWith(const Core::String& content) {
    SmartPtr<EditableDocumentBuffer> buffer(new EditableDocumentBuffer);
    buffer->setRootElement(L"qfd:document");
    for (const wchar_t* name : {L"fo:block", L"fo:inline"})
        buffer->addEditableElement(name);
    buffer->addInlineEditableElement(L"fo:inline");
    buffer->setContent(content, true);
    return buffer;
}

void makeAllBold(EditableDocumentBuffer& buffer) {
    buffer.moveCaretHome(false);
    buffer.moveCaretToEnd(true);
    buffer.setProperty({L"fo:font-weight", L"bold"}, L"");
}

void formatAll(benchmark::State& state) {
    const Core::String content = generatedDocument(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        const SmartPtr<EditableDocumentBuffer> buffer = bufferWith(content);
        state.ResumeTiming();
        makeAllBold(*buffer);
        if (buffer->getContent() == content)
            state.SkipWithError("nothing was formatted");
    }
}

void undoFormatAll(benchmark::State& state) {
    const Core::String content = generatedDocument(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        const SmartPtr<EditableDocumentBuffer> buffer = bufferWith(content);
        makeAllBold(*buffer);
        state.ResumeTiming();
        buffer->undo();
        if (buffer->getContent() != content)
            state.SkipWithError("undo did not bring the text back");
    }
}

void sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(100 * kilobytes)->Arg(1024 * kilobytes);
    bench->Unit(benchmark::kMillisecond)->Iterations(1);
}

} // namespace

BENCHMARK(formatAll)->Apply(sizes);
BENCHMARK(undoFormatAll)->Apply(sizes);
