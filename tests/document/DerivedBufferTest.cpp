// What a host's own class does with what a document opens to it.

#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

namespace {

class DerivedBuffer : public EditableDocumentBuffer {
public:
    explicit DerivedBuffer(const std::wstring& marked) {
        setUpAsHost(*this);
        const EditorState state = parseMarks(MarkedDocument::documentWith(marked));
        setContent(state.text, true);
        setCaretPos(false, state.pivot);
        setCaretPos(true, state.caret);
    }

    using EditableDocumentBuffer::insertHardBreak;
    using EditableDocumentBuffer::insertLineBreak;

    std::wstring marked() const {
        return inShort(MarkedDocument::flowOf(withMarks(stateOf(*this))));
    }
};

} // namespace

TEST(DerivedBuffer, BreaksInThePlaceOfWhatIsSelected) {
    DerivedBuffer buffer(L"<B>a^bc|d</B>");
    EXPECT_EQ(wide(buffer.insertHardBreak()), L"</fo:block>\n<fo:block>");
    EXPECT_EQ(buffer.marked(), L"<B>a</B>\n<B>|d</B>");
    for (const bool isHard : {true, false}) {
        DerivedBuffer another(L"<B>a^bc|d</B>");
        another.insertLineBreak(isHard);
        EXPECT_EQ(another.marked(), isHard ? L"<B>a</B>\n<B>|d</B>" : L"<B>a<B />|d</B>");
        another.undo();
        EXPECT_EQ(another.marked(), L"<B>a^bc|d</B>");
        EXPECT_FALSE(another.canUndo());
    }
}
