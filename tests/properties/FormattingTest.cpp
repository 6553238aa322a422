// Formatting of random selections: in documents that people wrote, and in small ones full of what
// is rare in those.

#include "Session.h"
#include "document/DocumentTesting.h"
#include "properties/RandomCommands.h"
#include "support/Documents.h"
#include "support/EditorState.h"
#include "support/WellFormed.h"
#include "text/XmlScan.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

const EditableProperty bold(L"fo:font-weight", L"bold");

class FormattedDocument : public TestBuffer {
public:
    /// A range of text as a user drags it, seldom a long one.
    void selectAnything(Random& random) {
        const int length = getContent().length();
        const auto below = [&random](int limit) {
            return static_cast<int>(random.below(static_cast<std::size_t>(limit)));
        };
        setCaretPos(false, stopBehind(below(length)));
        const int reach = random.oneIn(8) ? 5000 : 200;
        const int to = getCaretPos() + below(2 * reach) - reach;
        setCaretPos(true, stopBehind(std::clamp(to, 0, length - 1)));
    }

    /// The first selected stretch of text that is not bold; -1 if all is.
    int firstNotBold() const {
        const int end = std::max(getCaretPos(), getSelectionPivotPos());
        for (int stop = getSelectionStartIndex(); stop >= 0 && stop < end;) {
            const bool onTag = onTagStartPosition(stop);
            if (!onTag && inEditableElement(stop) &&
                getInheritablePropertyValueAtPosition(bold.getName(), stop) != bold.getValue())
                return stop;
            stop = getNextValidCaretPos(onTag ? stop : getNextTagPosition(stop));
        }
        return -1;
    }

    std::string withoutTags() const {
        std::wstring text;
        for (int next = 0, at = 0; at >= 0; at = next) {
            next = getNextEditablePositionInXml(at);
            if (next >= 0 && (!onTagStartPosition(at) || ignoredElementAtPosition(at)))
                text += XmlScan::slice(getContent().view(), at, next);
        }
        return Core::Encoder::toDisplayText(Core::String(text));
    }

private:
    /// The next stop, but none in the middle of a surrogate pair, which no tag can part.
    int stopBehind(int position) const {
        const int stop = getNextValidCaretPos(position);
        const bool inPair =
            stop >= 0 && getContent()[stop] >= 0xDC00 && getContent()[stop] < 0xE000;
        return inPair ? getNextValidCaretPos(stop) : stop;
    }
};

void formatAnything(FormattedDocument& document, Random& random) {
    document.selectAnything(random);
    const EditorState before = stateOf(document);
    if (!document.hasSelectedText())
        return;
    SCOPED_TRACE(std::to_string(before.pivot) + " to " + std::to_string(before.caret));
    const std::string text = document.withoutTags();

    document.setProperty(bold, L"");
    const EditorState after = stateOf(document);
    ASSERT_EQ(xmlError(after.text), "");
    EXPECT_EQ(document.withoutTags(), text);
    EXPECT_EQ(document.firstNotBold(), -1);

    document.undo();
    EXPECT_EQ(stateOf(document), before);
    EXPECT_FALSE(document.canUndo());
    document.redo();
    EXPECT_EQ(stateOf(document), after);
    document.undo();
}

} // namespace

TEST(Formatting, OfAnySelectionInRealDocumentsChangesNothingElse) {
    Random random(1);
    for (const auto& path : corpusAndSamples()) {
        SCOPED_TRACE(path);
        FormattedDocument document;
        loadDocument(document, Core::String(path.wstring().c_str()));
        formatAnything(document, random);
        formatAnything(document, random);
        document.redo();
        const EditorState formatted = stateOf(document);
        if (!document.hasSelectedText())
            continue;
        document.setProperty(bold, L"");
        EXPECT_EQ(stateOf(document), formatted) << "what is bold already stays as it is";
    }
}

TEST(Formatting, OfAnySelectionInStrangeDocumentsChangesNothingElse) {
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        FormattedDocument document;
        document.setContent(Core::Encoder::convertUTF8ToString(randomDocument(random)), true);
        formatAnything(document, random);
    }
}

TEST(Formatting, OfMoreTextThanTheHistoryHasRecordsIsUndoneWhole) {
    FormattedDocument document;
    Core::String flow;
    for (int i = 0; i < 1500; ++i)
        flow += L"<fo:block>a</fo:block>";
    document.setContent(L"<qfd:document><fo:flow>" + flow + L"</fo:flow></qfd:document>", true);
    document.insertText(L"x", false, false);
    document.moveCaretToEnd(false);
    document.moveCaretHome(true);
    const EditorState before = stateOf(document);
    document.getEditActionStack().startTrackingPos(before.text.length());

    document.setProperty(bold, L"");
    const EditorState after = stateOf(document);
    EXPECT_EQ(document.firstNotBold(), -1);
    EXPECT_EQ(document.getEditActionStack().retrieveTrackingPos(), after.text.length());

    document.undo();
    EXPECT_TRUE(stateOf(document) == before);
    document.redo();
    EXPECT_TRUE(stateOf(document) == after);
    document.undo();
    document.undo();
    EXPECT_FALSE(document.canUndo()) << "the typing before is a step as ever";
    EXPECT_EQ(stateOf(document).text.find(L"x", 0), -1);
}
