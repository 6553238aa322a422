// The ground floor on documents of four sizes: files, scans, primitives, snapshots, undo.

#include "GeneratedDocument.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "document/EditableDocumentBufferState.h"
#include "document/history/EditActionGroup.h"
#include "foundation/SmartPtr.h"

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

namespace {

constexpr int records = 9998; // with the two markers of their group, all that the history holds

class Buffer : public EditableDocumentBuffer {
public:
    using EditableXmlBuffer::getClosingTagForTagAtPosition;
    using EditableXmlBuffer::getCurrentElementPosition;
    using EditableXmlBuffer::getFirstEditablePositionInXml;
    using EditableXmlBuffer::getNextEditablePositionInXml;
    using EditableXmlBuffer::getPreviousEditablePositionInXml;

    int find(TextView what) const { return text().find(what, 0); }
    int length() const { return text().length(); }
    /// An offset in the middle of the document that stands in the text of a block.
    int middle() const { return text().find(L" the ", length() / 2) + 1; }
    const XmlText& text() const { return Document::of(*this).text(); }
};

const Core::String& documentOfSize(long long bytes) {
    static std::map<long long, Core::String> documents;
    const auto found = documents.find(bytes);
    return found != documents.end()
               ? found->second
               : documents.emplace(bytes, generatedDocument(bytes)).first->second;
}

SmartPtr<Buffer> bufferOfSize(long long bytes) {
    SmartPtr<Buffer> buffer(new Buffer);
    buffer->setRootElement(L"qfd:document");
    for (const wchar_t* name : {L"fo:block", L"fo:inline"})
        buffer->addEditableElement(name);
    buffer->addInlineEditableElement(L"fo:inline");
    buffer->setContent(documentOfSize(bytes), true);
    return buffer;
}

Core::String fileOfSize(long long bytes) {
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("forme-bench-" + std::to_string(bytes) + ".xml");
    return Core::String(path.wstring());
}

void countUnits(benchmark::State& state, const Buffer& buffer) {
    state.SetBytesProcessed(state.iterations() * buffer.length());
}

void save(benchmark::State& state) {
    const SmartPtr<Buffer> buffer = bufferOfSize(state.range(0));
    for (auto _ : state)
        buffer->saveToFile(fileOfSize(state.range(0)), DocumentEncoding::Utf8);
    countUnits(state, *buffer);
}

void load(benchmark::State& state) {
    const SmartPtr<Buffer> buffer = bufferOfSize(state.range(0));
    const Core::String path = fileOfSize(state.range(0));
    buffer->saveToFile(path, DocumentEncoding::Utf8);
    for (auto _ : state)
        buffer->setContentFromFile(path);
    countUnits(state, *buffer);
    std::filesystem::remove(path.c_str());
}

/// The memory that is in use, in whatever pieces.
double memoryInUse() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks) + static_cast<double>(info.hblkhd);
}

/// What a document takes for each of its units, behind loading and behind many edits all over it.
/// The host's own text is not part of it.
void setContent(benchmark::State& state) {
    constexpr int edits = 10000;
    const Core::String& content = documentOfSize(state.range(0));
    const double before = memoryInUse();
    SmartPtr<Buffer> buffer;
    for (auto _ : state)
        buffer = bufferOfSize(state.range(0));
    countUnits(state, *buffer);
    const auto bytesPerUnit = [&] { return (memoryInUse() - before) / buffer->length(); };
    state.counters["bytes/unit"] = bytesPerUnit();
    for (int edit = 0; edit < edits; ++edit) {
        const int place = static_cast<int>(1LL * content.length() * edit / edits);
        buffer->insertXmlTextAtPosition(std::max(0, buffer->text().find(L" ", place)), L" some");
    }
    state.counters["edited"] = bytesPerUnit();
}

void walkForward(benchmark::State& state) {
    const SmartPtr<Buffer> buffer = bufferOfSize(state.range(0));
    for (auto _ : state) {
        int position = buffer->getFirstEditablePositionInXml();
        while (position >= 0)
            position = buffer->getNextEditablePositionInXml(position);
        benchmark::DoNotOptimize(position);
    }
    countUnits(state, *buffer);
}

void walkBackward(benchmark::State& state) {
    const SmartPtr<Buffer> buffer = bufferOfSize(state.range(0));
    for (auto _ : state) {
        int position = buffer->length() - 1;
        while (position >= 0)
            position = buffer->getPreviousEditablePositionInXml(position);
        benchmark::DoNotOptimize(position);
    }
    countUnits(state, *buffer);
}

void closingTagOfFlow(benchmark::State& state) {
    const SmartPtr<Buffer> buffer = bufferOfSize(state.range(0));
    const int flow = buffer->find(L"<fo:flow");
    for (auto _ : state)
        benchmark::DoNotOptimize(buffer->getClosingTagForTagAtPosition(flow));
    countUnits(state, *buffer);
}

void currentElementAtFlowEnd(benchmark::State& state) {
    const SmartPtr<Buffer> buffer = bufferOfSize(state.range(0));
    const int end = buffer->find(L"</fo:flow>");
    for (auto _ : state)
        benchmark::DoNotOptimize(buffer->getCurrentElementPosition(end));
    countUnits(state, *buffer);
}

void insertInMiddle(benchmark::State& state) {
    const SmartPtr<Buffer> buffer = bufferOfSize(state.range(0));
    const int middle = buffer->middle();
    for (auto _ : state) {
        buffer->insertXmlTextAtPosition(middle, L"x");
        state.PauseTiming();
        buffer->deleteXmlText(middle, middle);
        state.ResumeTiming();
    }
}

void deleteInMiddle(benchmark::State& state) {
    const SmartPtr<Buffer> buffer = bufferOfSize(state.range(0));
    const int middle = buffer->middle();
    for (auto _ : state) {
        state.PauseTiming();
        buffer->insertXmlTextAtPosition(middle, L"x");
        state.ResumeTiming();
        benchmark::DoNotOptimize(buffer->deleteXmlText(middle, middle));
    }
}

void recordInsertions(Buffer& buffer, int position) {
    EditActionGroup group(&buffer);
    for (int i = 0; i < records; ++i) {
        buffer.insertXmlTextAtPosition(position + i, L"x");
        buffer.getEditActionStack().addAction(
            EditAction(EditAction::EditInsert, position + i, -1, -1, L"x"));
    }
}

void snapshotWithHistory(benchmark::State& state) {
    const SmartPtr<Buffer> buffer = bufferOfSize(state.range(0));
    for (int i = 0; i < records; ++i)
        buffer->getEditActionStack().addAction(
            EditAction(EditAction::EditCaret, -1, buffer->middle(), buffer->middle(), L""));
    for (auto _ : state) {
        const EditableDocumentBufferState snapshot(buffer.get());
        benchmark::DoNotOptimize(&snapshot);
    }
}

void undoRecords(benchmark::State& state) {
    const SmartPtr<Buffer> buffer = bufferOfSize(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        recordInsertions(*buffer, buffer->middle());
        state.ResumeTiming();
        buffer->undo();
    }
    if (buffer->getContent() != documentOfSize(state.range(0)))
        state.SkipWithError("undo did not bring the text back");
}

constexpr long long kilobytes = 1024;
constexpr long long megabytes = 1024 * kilobytes;

void sizes(benchmark::internal::Benchmark* bench) {
    for (const long long bytes : {10 * kilobytes, megabytes, 10 * megabytes, 100 * megabytes})
        bench->Arg(bytes);
}

} // namespace

BENCHMARK(load)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(setContent)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(save)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(walkForward)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(walkBackward)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(closingTagOfFlow)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(currentElementAtFlowEnd)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(insertInMiddle)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(deleteInMiddle)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(snapshotWithHistory)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(undoRecords)->Apply(sizes)->Unit(benchmark::kMillisecond)->Iterations(1);
