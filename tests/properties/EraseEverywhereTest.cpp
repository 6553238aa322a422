// Backspace and Delete, by unit and by word, from the stops of documents that people wrote.

#include "properties/EveryStop.h"

namespace {

/// How many editable elements hold nothing that a caret could stand on.
int countEmptied(const Document& document) {
    const XmlText& text = document.text();
    int count = 0;
    for (int tag = text.nextTag(0); tag >= 0; tag = text.nextTag(text.next(tag)))
        if (document.isEditableAt(tag) && !text.selfClosingAt(tag) &&
            Placeholders::isVoid(document, tag))
            ++count;
    return count;
}

/// Whether the text after lacks a comment, CDATA section or processing instruction, which Backspace
/// removes for good, and nothing else.
bool lacksIgnoredMarkup(const Core::String& before, const Core::String& after) {
    const XmlScan::Text whole = before.view();
    const auto difference = std::mismatch(after.view().begin(), after.view().end(), whole.begin());
    const int start =
        XmlScan::rFind(whole, L'<', static_cast<int>(difference.second - whole.begin()));
    const int lost = before.length() - after.length();
    if (lost <= 0 || !XmlScan::ignoredAt(whole, start))
        return false;
    Core::String rest = before;
    rest.erase(static_cast<unsigned>(start), static_cast<unsigned>(lost));
    return rest == after;
}

void tryErasing(StopsDocument& document, int stop, bool forward, bool wholeWord) {
    SCOPED_TRACE(std::string(forward ? "Delete" : "Backspace") + (wholeWord ? " by word" : ""));
    document->setCaretPos(false, stop);
    const EditorState before = document.state();
    const int emptied = countEmptied(document);
    document->erase(forward, wholeWord);
    const EditorState after = document.state();
    if (after.text == before.text)
        return;
    EXPECT_EQ(xmlError(after.text), "");
    EXPECT_TRUE(after.caret == -1 || Stops::canHoldCaret(document, after.caret)) << after.caret;
    EXPECT_LE(countEmptied(document), emptied);
    document->undo();
    if (lacksIgnoredMarkup(before.text, document.text().content())) {
        document->setContent(before.text, true);
        return;
    }
    document->redo();
    EXPECT_EQ(document.state(), after);
    expectReplays(document.face(), before);
    document->undo();
}

class EraseEverywhere : public EveryDocument {};

TEST_P(EraseEverywhere, KeepsTheDocumentWholeAndUndoes) {
    StopsDocument document(GetParam());
    document.fromEachStop([&](int stop) {
        for (const bool forward : {false, true})
            for (const bool wholeWord : {false, true})
                tryErasing(document, stop, forward, wholeWord);
    });
}

INSTANTIATE_TEST_SUITE_P(Documents, EraseEverywhere, testing::ValuesIn(corpusAndSamples()),
                         nameOfDocument);

} // namespace

// Nothing closes the inline by its name, so that it cannot go whole.
TEST(Erase, EndsInATextWhoseTagsDoNotMatch) {
    for (const bool forward : {true, false}) {
        const MarkedDocument document(forward ? L"<B>a|<I>  </fo:wrapper>bc</B>"
                                              : L"<B>a<I>  </fo:wrapper>|bc</B>");
        const std::wstring before = document.content();
        document->erase(forward, false);
        document->undo();
        EXPECT_EQ(document.content(), before);
    }
}
