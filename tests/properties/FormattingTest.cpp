// Formatting of random selections: in documents that people wrote, and in small ones full of what
// is rare in those.

#include "document/caret/Stops.h"
#include "properties/RandomCommands.h"
#include "support/Documents.h"
#include "support/MarkedDocument.h"
#include "support/WellFormed.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

const EditableProperty bold(L"fo:font-weight", L"bold");

struct FormattedDocument : MarkedDocument {
    /// A range of text as a user drags it, seldom a long one.
    void selectAnything(Random& random) {
        const int length = text().length();
        const auto below = [&random](int limit) {
            return static_cast<int>(random.below(static_cast<std::size_t>(limit)));
        };
        face().setCaretPos(false, stopBehind(below(length)));
        const int reach = random.oneIn(8) ? 5000 : 200;
        const int to = caret() + below(2 * reach) - reach;
        face().setCaretPos(true, stopBehind(std::clamp(to, 0, length - 1)));
    }

    /// The first selected stretch of text that is not bold; -1 if all is.
    int firstNotBold() const {
        const int end = document().selectionEnd();
        for (int stop = document().selectionStart(); stop >= 0 && stop < end;) {
            const bool onTag = text().onTagStart(stop);
            if (!onTag && document().isInEditable(stop) &&
                face().getInheritablePropertyValueAtPosition(bold.getName(), stop) !=
                    bold.getValue())
                return stop;
            stop = Stops::next(*this, onTag ? stop : text().nextTag(stop));
        }
        return -1;
    }

    std::string withoutTags() const {
        std::wstring kept;
        for (int next = 0, at = 0; at >= 0; at = next) {
            next = text().next(at);
            if (next >= 0 && (!text().onTagStart(at) || text().ignoredAt(at)))
                kept += text().view(at, next);
        }
        return Core::Encoder::toDisplayText(Core::String(kept));
    }

private:
    /// The next stop, but none in the middle of a surrogate pair, which no tag can part.
    int stopBehind(int position) const {
        const int stop = Stops::next(*this, position);
        const bool inPair =
            stop >= 0 && text().unitAt(stop) >= 0xDC00 && text().unitAt(stop) < 0xE000;
        return inPair ? Stops::next(*this, stop) : stop;
    }
};

void formatAnything(FormattedDocument& document, Random& random) {
    document.selectAnything(random);
    const EditorState before = stateOf(document.face());
    if (!document->hasSelectedText())
        return;
    SCOPED_TRACE(std::to_string(before.pivot) + " to " + std::to_string(before.caret));
    const std::string text = document.withoutTags();

    document->setProperty(bold, L"");
    ASSERT_EQ(xmlError(document->getContent()), "");
    EXPECT_EQ(document.withoutTags(), text);
    EXPECT_EQ(document.firstNotBold(), -1);
    expectReplays(document.face(), before);
    document->undo();
    EXPECT_FALSE(document->canUndo());
}

} // namespace

TEST(Formatting, OfAnySelectionInRealDocumentsChangesNothingElse) {
    Random random(1);
    for (const auto& path : corpusAndSamples()) {
        SCOPED_TRACE(path);
        FormattedDocument document;
        loadDocument(document.face(), Core::String(path.wstring().c_str()));
        formatAnything(document, random);
        formatAnything(document, random);
        document->redo();
        const EditorState formatted = stateOf(document.face());
        if (!document->hasSelectedText())
            continue;
        document->setProperty(bold, L"");
        EXPECT_EQ(stateOf(document.face()), formatted) << "what is bold already stays as it is";
    }
}

TEST(Formatting, OfAnySelectionInStrangeDocumentsChangesNothingElse) {
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        Random random(seed);
        FormattedDocument document;
        document->setContent(Core::Encoder::convertUTF8ToString(randomDocument(random)), true);
        formatAnything(document, random);
    }
}

TEST(Formatting, OfMoreTextThanTheHistoryHasRecordsIsUndoneWhole) {
    FormattedDocument document;
    Core::String flow;
    for (int i = 0; i < 1500; ++i)
        flow += L"<fo:block>a</fo:block>";
    document->setContent(L"<qfd:document><fo:flow>" + flow + L"</fo:flow></qfd:document>", true);
    document->insertText(L"x", false, false);
    document->moveCaretToEnd(false);
    document->moveCaretHome(true);
    const EditorState before = stateOf(document.face());
    document.document().history.startTrackingPos(before.text.length());

    document->setProperty(bold, L"");
    EXPECT_EQ(document.firstNotBold(), -1);
    EXPECT_EQ(document.document().history.retrieveTrackingPos(), document.text().length());
    expectReplays(document.face(), before);
    document->undo();
    document->undo();
    EXPECT_FALSE(document->canUndo()) << "the typing before is a step as ever";
    EXPECT_EQ(stateOf(document.face()).text.find(L"x", 0), -1);
}
