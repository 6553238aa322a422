// A person's typing, replayed keystroke by keystroke into one block of a document.

#include "EditingTrace.h"
#include "GeneratedDocument.h"

#include "document/EditableDocumentBuffer.h"
#include "foundation/Encoder.h"
#include "foundation/SmartPtr.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr long long megabytes = 1024LL * 1024;

/// Types into the first block of the last flow. A character of the person's text is one unit of
/// ours: a character, an entity, or for a blank that would not show, the entity of the non-breaking
/// space.
class Typist : public EditableDocumentBuffer {
public:
    explicit Typist(long long bytesInFront) {
        setRootElement(L"qfd:document");
        for (const wchar_t* name : {L"fo:block", L"fo:inline"})
            addEditableElement(name);
        addInlineEditableElement(L"fo:inline");
        Core::String content = generatedDocument(bytesInFront);
        const int end = content.find(L"</fo:flow>", 0);
        content.insert(static_cast<unsigned>(end), L"<fo:block>&#x00A0;</fo:block>");
        setContent(content, true);
        start_ = end + Core::String(L"<fo:block>").length();
        at_ = start_;
        setCaretPos(false, start_);
    }

    void goTo(int index) {
        for (; index_ < index; ++index_)
            at_ = getNextEditablePositionInXml(at_);
        for (; index_ > index; --index_)
            at_ = getPreviousEditablePositionInXml(at_);
        if (getCaretPos() != at_)
            setCaretPos(false, at_);
    }

    void typeCharacter(char character) {
        insertText(Core::String(character == '\n' || character == '\t' ? L' ' : character, 1),
                   false, false);
        at_ = getCaretPos();
        ++index_;
    }

    int index() const { return index_; }

    /// Delete.
    void eraseNextCharacter() {
        erase(true, false);
        at_ = getCaretPos();
    }

    /// Backspace. The character between two blanks is deleted from its front, since Backspace would
    /// leave one blank of the two.
    void erasePreviousCharacter() {
        const int character = getPreviousEditablePositionInXml(at_);
        if (text_[character - 1] == L' ' && text_[at_] == L' ') {
            goTo(index_ - 1);
            eraseNextCharacter();
            return;
        }
        erase(false, false);
        at_ = getCaretPos();
        --index_;
    }

    /// What was typed, with each kind of white space as a blank.
    std::string plainText() const {
        const int end = getLastPositionInElementContaining(start_);
        Core::String text =
            text_.subString(static_cast<unsigned>(start_), static_cast<unsigned>(end - 1));
        text.replaceAll(L"&#x00A0;", L" ");
        text.replaceAll(L"\x00A0", L" ");
        text.replaceAll(L"&lt;", L"<");
        text.replaceAll(L"&gt;", L">");
        text.replaceAll(L"&quot;", L"\"");
        text.replaceAll(L"&apos;", L"'");
        text.replaceAll(L"&amp;", L"&");
        return Core::Encoder::toDisplayText(text);
    }

private:
    int start_ = 0;
    int index_ = 0; // in the person's text
    int at_ = 0;    // the same place in ours
};

std::string withBlanks(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char ch) { return ch == '\n' || ch == '\t'; }, ' ');
    return text;
}

double medianMicroseconds(std::vector<Clock::duration>& times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return std::chrono::duration<double, std::micro>(*middle).count();
}

template <typename Operation>
void timed(std::vector<Clock::duration>& times, Operation operation) {
    const Clock::time_point begun = Clock::now();
    operation();
    times.push_back(Clock::now() - begun);
}

void replay(Typist& typist, const EditingTrace& trace, std::size_t most,
            std::vector<Clock::duration>& times) {
    for (const Patch& patch : trace.patches) {
        const int behind = patch.position + patch.deleted;
        const bool backward = typist.index() == behind;
        typist.goTo(backward ? behind : patch.position);
        for (int i = 0; i < patch.deleted; ++i)
            timed(times, [&] {
                backward ? typist.erasePreviousCharacter() : typist.eraseNextCharacter();
            });
        for (const char character : patch.inserted)
            timed(times, [&] { typist.typeCharacter(character); });
        if (times.size() >= most)
            return;
    }
}

/// `most` bounds the operations replayed; a replay to the end is checked against what the person
/// wrote.
void typing(benchmark::State& state, const char* name, std::size_t most) {
    const EditingTrace trace = readTrace(std::string(FORME_TRACES) + "/" + name + ".json.gz");
    for (auto _ : state) {
        const SmartPtr<Typist> typist(new Typist(state.range(0)));
        std::vector<Clock::duration> times;
        replay(*typist, trace, most, times);
        Clock::duration total{};
        for (const Clock::duration time : times)
            total += time;
        state.SetIterationTime(std::chrono::duration<double>(total).count());
        state.counters["operations"] = static_cast<double>(times.size());
        state.counters["median_us"] = medianMicroseconds(times);
        if (times.size() < most && typist->plainText() != withBlanks(trace.endContent))
            state.SkipWithError("the text at the end is not what was typed");
    }
}

} // namespace

BENCHMARK_CAPTURE(typing, sveltecomponent, "sveltecomponent", 1000000)
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typing, seph_blog1, "seph-blog1", 1000000)
    ->Arg(0)
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typing, sveltecomponent_first_1000, "sveltecomponent", 1000)
    ->Arg(megabytes)
    ->Arg(10 * megabytes)
    ->UseManualTime()
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);
