// What is remembered of the elements around tags stays what a scan of the text finds.

#include "DocumentTesting.h"
#include "properties/RandomCommands.h"
#include "text/XmlScan.h"

#include <gtest/gtest.h>

#include <array>

namespace {

class EditedBuffer : public TestBuffer {
public:
    using TestBuffer::TestBuffer, EditableDocumentBuffer::getCurrentElementPosition;

    int anyUnit(Random& random) const {
        const auto position = random.below(getContent().view().size());
        return XmlScan::unitStart(getContent().view(), static_cast<int>(position));
    }

    void edit(Random& random) {
        static constexpr std::array pieces{L"x",       L">",       L"<b><c>y</c></b>",
                                           L"<!---->", L"<c></c>", L"<![CDATA[<b>]]>"};
        const int place = anyUnit(random);
        const int end = getClosingTagForTagAtPosition(place);
        if (end > place && random.oneIn(3))
            deleteXmlText(place, getNextEditablePositionInXml(end) - 1);
        else if (getContent()[place] == L'x' && random.oneIn(2))
            deleteXmlText(place, place);
        else if (inEditableElement(place))
            insertXmlTextAtPosition(place, random.oneOf(pieces));
    }

    void expectWhatAScanFinds(int position) const {
        ASSERT_EQ(getCurrentElementPosition(position),
                  XmlScan::currentElement(getContent().view(), position))
            << position << " " << text();
    }
};

} // namespace

TEST(ElementMemo, KnowsWhatAScanFindsAfterEveryEdit) {
    Random random(1);
    for (int document = 0; document < 20; ++document) {
        EditedBuffer buffer(L"<B>x</B><B><I>x</I></B>");
        for (int edit = 0; edit < 100; ++edit) {
            buffer.edit(random);
            for (int question = 0; question < 20; ++question)
                buffer.expectWhatAScanFinds(buffer.anyUnit(random));
        }
    }
}
