// What is remembered of a text, of the elements around its tags and of what stands before a place,
// stays what a scan of the text finds.

#include "properties/RandomCommands.h"
#include "text/XmlTexts.h"

#include <gtest/gtest.h>

#include <array>

namespace {

int anyUnit(const XmlText& text, Random& random) {
    return text.unitStart(static_cast<int>(random.below(static_cast<std::size_t>(text.length()))));
}

void edit(XmlText& text, Random& random) {
    static constexpr std::array pieces{
        L"x",
        L">",
        L"<b><c>y</c></b>",
        L"<!---->",
        L"<c></c>",
        L"<![CDATA[<b>]]>",
        L"&lt;",
        L"&",
        L";",
        L"a text that is so long that what stands before it is remembered, with x and > in it"};
    const int place = anyUnit(text, random);
    const int end = text.closingTag(place);
    if (end > place && place > 0 && random.oneIn(3))
        text.erase(place, text.next(end));
    else if (text.unitAt(place) == L'x' && random.oneIn(2))
        text.erase(place, place + 1);
    else if (text.elementAround(place) >= 0)
        text.insert(place, random.oneOf(pieces));
}

} // namespace

TEST(ElementMemo, KnowsWhatAScanFindsAfterEveryEdit) {
    Random random(1);
    for (int document = 0; document < 20; ++document) {
        XmlText text = xmlText(L"<r><b>x</b><b><c>x</c></b></r>");
        for (int edits = 0; edits < 100; ++edits) {
            edit(text, random);
            for (int question = 0; question < 20; ++question) {
                const int at = anyUnit(text, random);
                ASSERT_EQ(text.elementAround(at),
                          XmlScan::currentElement(text.content().view(), at))
                    << at << " " << wide(text.content());
                const int any =
                    static_cast<int>(random.below(static_cast<std::size_t>(text.length())));
                ASSERT_EQ(text.unitStart(any), XmlScan::unitStart(text.content().view(), any))
                    << any << " " << wide(text.content());
            }
        }
    }
}
