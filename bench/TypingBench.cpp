// A person's typing, replayed keystroke by keystroke into one block of a document.

#include "Allocations.h"
#include "EditingTrace.h"
#include "GeneratedDocument.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "foundation/Encoder.h"
#include "foundation/SmartPtr.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr long long megabytes = 1024LL * 1024;

/// Types into the last flow. A line of the person's text is a block of ours, and a character a
/// unit: a character, an entity, or for a blank that would not show, the entity of the non-breaking
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

    /// Goes to a place in the person's text, which is `written` so far.
    void goTo(int index, const std::string& written) {
        const auto isLineFeed = [&](int at) {
            return at < 0 || written[static_cast<std::size_t>(at)] == '\n';
        };
        for (; index_ < index; ++index_)
            at_ = isLineFeed(index_) ? startOfNextLine() : getNextEditablePositionInXml(at_);
        for (; index_ > index; --index_)
            at_ = isLineFeed(index_ - 1) ? endOfPreviousLine(isLineFeed(index_ - 2))
                                         : getPreviousEditablePositionInXml(at_);
        if (getCaretPos() != at_)
            setCaretPos(false, at_);
    }

    void typeCharacter(char character) {
        if (character == '\n')
            typeLineFeed();
        else
            insertText(Core::String(character == '\t' ? L' ' : character, 1), false, false);
    }

    int index() const { return index_; }

    /// Whether the line holds but blanks, of which one is the placeholder of an empty line.
    bool isInBlankLine() const {
        return elementContainsJustNonBreakingSpace(getCurrentElementPosition(at_));
    }

    /// Any of the line's blanks; the placeholder stays.
    void eraseBlankInBlankLine() {
        const int end = getLastPositionInElementContaining(at_);
        if (unitAt(end - 1) == L' ')
            deleteContentAtPosition(false, end - 1, end);
    }

    /// Delete.
    void eraseNextCharacter() {
        if (isHidden(at_))
            deleteContentAtPosition(false, at_, at_ + 1);
        else
            erase(true, false);
    }

    /// Backspace. The character between two blanks is deleted from its front, since Backspace would
    /// leave one blank of the two.
    void erasePreviousCharacter() {
        const int character = getPreviousEditablePositionInXml(at_);
        if (isHidden(character) || (unitAt(character - 1) == L' ' && unitAt(at_) == L' ')) {
            at_ = character;
            setCaretPos(false, at_);
            eraseNextCharacter();
            return;
        }
        erase(false, false);
    }

    /// Takes note that the caret is at a place in the person's text, which is `column` characters
    /// into its line. Where our caret is at the start of a line, blanks that do not show are before
    /// it, and in a line of nothing but blanks it stands before the first.
    void noteIndex(int index, int column) {
        index_ = index;
        at_ = getCaretPos();
        const int line = getCurrentElementPosition(at_);
        if (column > 0 && !elementContainsJustNonBreakingSpace(line))
            return;
        at_ = getNextEditablePositionInXml(line);
        for (; column > 0; --column)
            at_ = getNextEditablePositionInXml(at_);
    }

    /// What was typed, with blanks for tabs and non-breaking spaces.
    std::string plainText() const {
        Core::String text;
        const int firstLine = getCurrentElementPosition(start_);
        for (int line = firstLine; line >= 0; line = getNextElementPosition(line))
            text += (line > firstLine ? L"\n" : L"") + lineAt(line);
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
    wchar_t unitAt(int position) const { return Document::of(*this).text().unitAt(position); }

    /// Where only blanks stand before the caret, that line is empty to us and gets a placeholder,
    /// which is one of the blanks.
    void typeLineFeed() {
        const int start = getNextEditablePositionInXml(getCurrentElementPosition(getCaretPos()));
        const bool hidesBlank = isHidden(start);
        insertBreak(BreakType::Hard, false);
        if (hidesBlank && elementContainsJustNonBreakingSpace(getCurrentElementPosition(start)))
            deleteContentAtPosition(true, start, start + 1);
    }

    Core::String lineAt(int line) const {
        const int start = getNextEditablePositionInXml(line);
        const int end = getClosingTagForTagAtPosition(line);
        const Core::String content = Document::of(*this).text().slice(start, end);
        return content == L"&#x00A0;" || content == L"\x00A0" ? Core::String() : content;
    }

    /// Whether a blank stands there that does not show, as at the end of a line.
    bool isHidden(int position) const {
        int shown = position;
        skipSpacesFromPos(shown, false);
        return unitAt(position) == L' ' && shown > position;
    }

    int startOfNextLine() const {
        const int end = getLastPositionInElementContaining(at_);
        return getNextEditablePositionInXml(getNextElementPosition(end));
    }

    /// An empty line has its placeholder, before which it ends.
    int endOfPreviousLine(bool isEmpty) const {
        const int line = getPreviousElementPosition(at_);
        return isEmpty ? getNonBreakingSpacePosition(line) : getClosingTagForTagAtPosition(line);
    }

    int start_ = 0;
    int index_ = 0; // in the person's text
    int at_ = 0;    // the same place in ours
};

/// A tab counts as a blank, and a line of a single blank as an empty one.
std::string asBlocks(std::string text) {
    std::replace(text.begin(), text.end(), '\t', ' ');
    std::string lines = "\n" + text + "\n";
    for (std::size_t at = 0; (at = lines.find("\n \n", at)) != std::string::npos;)
        lines.erase(at + 1, 1);
    return lines.substr(1, lines.size() - 2);
}

double medianMicroseconds(std::vector<Clock::duration>& times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return std::chrono::duration<double, std::micro>(*middle).count();
}

/// What each of the operations took, and the allocations of them all.
struct Costs {
    std::vector<Clock::duration> times;
    long long allocated = 0;
};

template <typename Operation>
void timed(Costs& costs, Operation operation) {
    const long long allocatedBefore = allocations();
    const Clock::time_point begun = Clock::now();
    operation();
    const Clock::duration time = Clock::now() - begun;
    costs.allocated += allocations() - allocatedBefore;
    costs.times.push_back(time);
}

int columnOf(int index, const std::string& text) {
    const std::size_t end =
        index == 0 ? std::string::npos : text.rfind('\n', static_cast<std::size_t>(index - 1));
    return end == std::string::npos ? index : index - static_cast<int>(end) - 1;
}

void replay(Typist& typist, const EditingTrace& trace, std::size_t most, Costs& costs) {
    std::string written;
    for (const Patch& patch : trace.patches) {
        const int behind = patch.position + patch.deleted;
        const bool backward = typist.index() == behind;
        for (int i = 0; i < patch.deleted; ++i) {
            typist.goTo(backward ? behind - i : patch.position, written);
            const char character =
                written[static_cast<std::size_t>(typist.index() - (backward ? 1 : 0))];
            timed(costs, [&] {
                if (character != '\n' && typist.isInBlankLine())
                    typist.eraseBlankInBlankLine();
                else if (backward)
                    typist.erasePreviousCharacter();
                else
                    typist.eraseNextCharacter();
            });
            const int at = backward ? behind - i - 1 : patch.position;
            written.erase(static_cast<std::size_t>(at), 1);
            typist.noteIndex(at, columnOf(at, written));
        }
        typist.goTo(patch.position, written);
        for (const char character : patch.inserted)
            timed(costs, [&] { typist.typeCharacter(character); });
        written.insert(static_cast<std::size_t>(patch.position), patch.inserted);
        const int end = patch.position + static_cast<int>(patch.inserted.size());
        typist.noteIndex(end, columnOf(end, written));
        if (costs.times.size() >= most)
            return;
    }
}

/// `most` bounds the operations replayed; a replay to the end is checked against what the person
/// wrote.
void typing(benchmark::State& state, const char* name, std::size_t most) {
    const std::string path = std::string(FORME_TRACES) + "/" + name + ".json.gz";
    if (!std::filesystem::exists(path))
        return state.SkipWithError("the trace is not here");
    const EditingTrace trace = readTrace(path);
    for (auto _ : state) {
        const SmartPtr<Typist> typist(new Typist(state.range(0)));
        Costs costs;
        replay(*typist, trace, most, costs);
        std::vector<Clock::duration>& times = costs.times;
        Clock::duration total{};
        for (const Clock::duration time : times)
            total += time;
        state.SetIterationTime(std::chrono::duration<double>(total).count());
        state.counters["operations"] = static_cast<double>(times.size());
        state.counters["median_us"] = medianMicroseconds(times);
        state.counters["allocations"] =
            static_cast<double>(costs.allocated) / static_cast<double>(times.size());
        if (times.size() < most && typist->plainText() != asBlocks(trace.endContent))
            state.SkipWithError("the text at the end is not what was typed");
    }
}

/// A run of typing without a move of the caret, and its undo: twice as long, twice the time.
void longRun(benchmark::State& state) {
    for (auto _ : state) {
        const SmartPtr<Typist> typist(new Typist(0));
        const Core::String before = typist->getContent();
        for (long key = 0; key < state.range(0); ++key)
            typist->typeCharacter(key % 6 == 5 ? ' ' : 'x');
        typist->undo();
        if (typist->getContent() != before)
            state.SkipWithError("the run was not undone as one");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

} // namespace

BENCHMARK(longRun)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
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
