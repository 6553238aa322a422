// Formatting of random selections: in documents that people wrote, and in small ones full of what
// is rare in those. FORME_SELECTIONS sets how many are tried in each.

#include "Session.h"
#include "document/DocumentTesting.h"
#include "properties/RandomCommands.h"
#include "support/Documents.h"
#include "support/WellFormed.h"
#include "text/XmlScan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

const EditableProperty bold(L"fo:font-weight", L"bold");

/// What a user sees change.
struct State {
    Core::String text;
    int caret;
    int pivot;

    bool operator==(const State&) const = default;
};

class FormattedDocument : public TestBuffer {
public:
    State state() const { return {text_, getCaretPos(), getSelectionPivotPos()}; }
    std::string plainText() const { return withoutTags(0, text_.length()); }
    std::string selectedText() const { return withoutTags(selectionStart(), selectionEnd()); }

    /// A range of text as a user drags it, seldom a long one.
    void selectAnything(Random& random) {
        const int length = text_.length();
        const auto below = [&random](int limit) {
            return static_cast<int>(random.below(static_cast<std::size_t>(limit)));
        };
        setCaretPos(false, stopBehind(below(length)));
        const int reach = random.oneIn(8) ? 5000 : 200;
        const int to = std::clamp(getCaretPos() + below(2 * reach) - reach, 0, length - 1);
        setCaretPos(true, stopBehind(to));
    }

    /// The first selected stretch of text that is not bold; -1 if all is.
    int firstNotBold() const {
        for (int stop = selectionStart(); stop >= 0 && stop < selectionEnd();) {
            const bool onTag = onTagStartPosition(stop);
            if (!onTag && inEditableElement(stop) &&
                getInheritablePropertyValueAtPosition(bold.getName(), stop) != bold.getValue())
                return stop;
            stop = getNextValidCaretPos(onTag ? stop : getNextTagPosition(stop));
        }
        return -1;
    }

private:
    /// The next stop, but none in the middle of a surrogate pair, which no tag can part.
    int stopBehind(int position) const {
        int stop = getNextValidCaretPos(position);
        if (stop >= 0 && text_[stop] >= 0xDC00 && text_[stop] < 0xE000)
            stop = getNextValidCaretPos(stop);
        return stop;
    }

    int selectionStart() const { return std::min(getCaretPos(), getSelectionPivotPos()); }
    int selectionEnd() const { return std::max(getCaretPos(), getSelectionPivotPos()); }

    std::string withoutTags(int start, int end) const {
        std::wstring text;
        while (start >= 0 && start < end) {
            const int next = getNextEditablePositionInXml(start);
            if (!onTagStartPosition(start) || ignoredElementAtPosition(start))
                text += XmlScan::slice(text_.view(), start, next < 0 ? end : next);
            start = next;
        }
        return Core::Encoder::toDisplayText(Core::String(text));
    }
};

void formatAnything(FormattedDocument& document, Random& random) {
    document.selectAnything(random);
    const State before = document.state();
    if (before.caret == before.pivot)
        return;
    SCOPED_TRACE("selected: " + std::to_string(before.pivot) + " to " +
                 std::to_string(before.caret));
    const std::string plainText = document.plainText();
    const std::string selectedText = document.selectedText();

    document.setProperty(bold, L"");
    const State after = document.state();
    ASSERT_EQ(xmlError(after.text), "");
    EXPECT_EQ(document.plainText(), plainText);
    EXPECT_EQ(document.selectedText(), selectedText);
    EXPECT_EQ(document.firstNotBold(), -1);

    document.undo();
    EXPECT_EQ(document.state(), before);
    EXPECT_FALSE(document.canUndo());
    document.redo();
    EXPECT_EQ(document.state(), after);
    document.undo();
}

void formatOften(FormattedDocument& document, Random& random) {
    const char* const often = std::getenv("FORME_SELECTIONS");
    for (int i = often ? std::atoi(often) : 2; i > 0 && !testing::Test::HasFailure(); --i)
        formatAnything(document, random);
}

} // namespace

TEST(Formatting, OfAnySelectionInRealDocumentsChangesNothingElse) {
    Random random(1);
    for (const auto& path : corpusAndSamples()) {
        SCOPED_TRACE(path);
        FormattedDocument document;
        loadDocument(document, Core::String(path.wstring().c_str()));
        formatOften(document, random);
        if (!document.canRedo())
            continue; // nothing could be selected

        document.redo();
        const State formatted = document.state();
        document.setProperty(bold, L"");
        EXPECT_EQ(document.state(), formatted) << "what is bold already stays as it is";
    }
}

TEST(Formatting, OfAnySelectionInStrangeDocumentsChangesNothingElse) {
    for (std::uint32_t seed = 1; seed <= 100; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        FormattedDocument document;
        document.setContent(Core::Encoder::convertUTF8ToString(randomDocument(random)), true);
        formatOften(document, random);
    }
}
