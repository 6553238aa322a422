// What six keys cost in documents of unlike shapes and sizes, what it costs to refuse a change, and
// what the key behind a reading of the whole text costs.

#include "GeneratedDocument.h"
#include "Typist.h"

#include "document/EditableDocumentBuffer.h"
#include "foundation/SmartPtr.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace {

constexpr long long kilobytes = 1024;
constexpr long long megabytes = 1024 * kilobytes;

constexpr std::wstring_view paragraph = L"<fo:block>some words to stand in line</fo:block>";

using Shape = std::wstring (*)(std::size_t size);

std::wstring repeated(std::wstring_view piece, std::size_t size) {
    std::wstring text;
    while (text.size() < size)
        text += piece;
    return text;
}

constexpr Shape shortParagraphs = [](std::size_t size) { return repeated(paragraph, size); };
constexpr Shape manyEntities = [](std::size_t size) {
    return repeated(L"<fo:block>a &amp; b &lt; c &amp; d</fo:block>", size);
};
constexpr Shape oneParagraph = [](std::size_t size) {
    return L"<fo:block>" + repeated(L"word ", size) + L"</fo:block>";
};
constexpr Shape oneLongWord = [](std::size_t size) {
    return L"<fo:block>" + std::wstring(size, L'x') + L"</fo:block>";
};
constexpr Shape longAttribute = [](std::size_t size) {
    return L"<fo:block id=\"" + std::wstring(size, L'x') + L"\">words</fo:block>";
};
constexpr Shape oneTable = [](std::size_t size) {
    return L"<fo:table><fo:table-body>" +
           repeated(L"<fo:table-row><fo:table-cell>" + std::wstring(paragraph) +
                        L"</fo:table-cell></fo:table-row>",
                    size) +
           L"</fo:table-body></fo:table>";
};

/// A document with so much in front of a last paragraph, and its caret so far into all this.
SmartPtr<EditableDocumentBuffer> documentWith(const std::wstring& front, std::size_t caret) {
    const std::wstring around(generatedDocument(0).view());
    const std::size_t flow = around.find(L'>', around.find(L"<fo:flow")) + 1;
    SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    open(*document, Core::String(around.substr(0, flow) + front + std::wstring(paragraph) +
                                 around.substr(flow)));
    document->setCaretPos(false, static_cast<int>(flow + caret));
    return document;
}

/// The caret stands in a word of the last paragraph.
SmartPtr<EditableDocumentBuffer> documentBehind(const std::wstring& front) {
    return documentWith(front, front.size() + paragraph.find(L"ords"));
}

/// They come back to where they began.
void pressSixKeys(benchmark::State& state, EditableDocumentBuffer& document) {
    for (auto _ : state) {
        document.insertText(L"x", false, false);
        document.erase(false, false);
        document.insertBreak(BreakType::Hard, false);
        document.erase(false, false);
        document.moveCaretLeft(false, false, false);
        document.moveCaretRight(false, false, false);
    }
}

void sixKeys(benchmark::State& state, Shape shape) {
    const auto document = documentBehind(shape(static_cast<std::size_t>(state.range(0))));
    const Core::String before = document->getContent();
    pressSixKeys(state, *document);
    if (document->getContent() != before)
        state.SkipWithError("the keys did not take back what they did");
}

/// The caret stands within what the shape makes much of.
void sixKeysWithin(benchmark::State& state, Shape shape) {
    const auto size = static_cast<std::size_t>(state.range(0));
    const auto document = documentWith(shape(size), size / 2 / 5 * 5 + 13);
    pressSixKeys(state, *document);
}

void refusedChange(benchmark::State& state) {
    const auto document = documentBehind(shortParagraphs(static_cast<std::size_t>(state.range(0))));
    const Core::String before = document->getContent();
    document->insertText(L"<fo:block>", true, false); // reads the text once
    for (auto _ : state)
        document->insertText(L"<fo:block>", true, false);
    if (document->getContent() != before)
        state.SkipWithError("the change was not refused");
}

/// `isRead` tells whether a host reads all of the text before each key.
void characterOfHost(benchmark::State& state, bool isRead) {
    const auto document = documentBehind(shortParagraphs(static_cast<std::size_t>(state.range(0))));
    for (auto _ : state) {
        const Core::String content = isRead ? document->getContent() : Core::String();
        benchmark::DoNotOptimize(&content);
        document->insertText(L"x", false, false);
    }
}

void sizes(benchmark::internal::Benchmark* bench) {
    for (const long long bytes : {10 * kilobytes, megabytes, 10 * megabytes, 100 * megabytes})
        bench->Arg(bytes);
}

void fewSizes(benchmark::internal::Benchmark* bench) {
    for (const long long bytes : {10 * kilobytes, 5 * megabytes})
        bench->Arg(bytes);
}

} // namespace

BENCHMARK_CAPTURE(sixKeys, short_paragraphs, shortParagraphs)->Apply(sizes);
BENCHMARK_CAPTURE(sixKeys, many_entities, manyEntities)->Apply(fewSizes);
BENCHMARK_CAPTURE(sixKeys, one_paragraph, oneParagraph)->Apply(fewSizes);
BENCHMARK_CAPTURE(sixKeys, one_long_word, oneLongWord)->Apply(fewSizes);
BENCHMARK_CAPTURE(sixKeys, long_attribute, longAttribute)->Apply(fewSizes);
BENCHMARK_CAPTURE(sixKeys, one_table, oneTable)->Apply(fewSizes);
BENCHMARK_CAPTURE(sixKeysWithin, one_paragraph, oneParagraph)->Apply(fewSizes);
BENCHMARK_CAPTURE(sixKeysWithin, one_long_word, oneLongWord)->Apply(fewSizes);
BENCHMARK(refusedChange)->Apply(sizes);
BENCHMARK_CAPTURE(characterOfHost, alone, false)->Apply(sizes);
BENCHMARK_CAPTURE(characterOfHost, behind_getContent, true)->Apply(sizes);
