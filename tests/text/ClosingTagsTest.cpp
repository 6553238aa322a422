// Where tags end and which closes which stays what a scan finds that remembers nothing, whatever
// the text and in whatever order is asked.

#include "properties/RandomCommands.h"
#include "text/XmlTexts.h"

#include <gtest/gtest.h>

#include <array>

namespace {

std::wstring anyMarkup(Random& random) {
    static const std::array<std::wstring, 12> pieces{L"<a>",    L"</a>", L"<b>",  L"</b>",
                                                     L"<c x='", L"'>",   L"\"",   L"<d/>",
                                                     L"/>",     L">",    L"<!--", L"--></e>"};
    std::wstring text;
    for (std::size_t length = random.below(60); text.size() < length * 10;)
        text += random.oneIn(12) ? std::wstring(300, L'x') : random.oneOf(pieces);
    return text;
}

} // namespace

TEST(ClosingTags, AreThoseThatAScanFinds) {
    Random random(1);
    for (int document = 0; document < 400; ++document) {
        XmlText text = xmlText(Core::String(L"<r>" + anyMarkup(random)));
        for (int question = 0; question < 200; ++question) {
            const auto length = static_cast<std::size_t>(text.length());
            const int tag = text.find(L'<', static_cast<int>(random.below(length)));
            const Core::String content = text.content();
            ASSERT_EQ(text.selfClosingAt(tag), XmlScan::selfClosingAt(content.view(), tag))
                << tag << " " << wide(content);
            ASSERT_EQ(text.closingTag(tag), XmlScan::closingTag(content.view(), tag))
                << tag << " " << wide(content);
            if (random.oneIn(50))
                text.insert(static_cast<int>(random.below(length)),
                            Core::String(anyMarkup(random)));
        }
    }
}
