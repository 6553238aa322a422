// Marks of a text, used in any order while it changes, against copies of it.

#include "text/XmlText.h"

#include "properties/RandomCommands.h"

#include <gtest/gtest.h>

#include <iterator>
#include <list>
#include <string>
#include <vector>

namespace {

using Core::String;

struct Copy {
    explicit Copy(const XmlText& text) : mark(text.mark()), content(text.content().view()) {}

    TextMark mark;
    std::wstring content;
};

void edit(XmlText& text, Random& random) {
    const auto any = [&](int length) {
        return static_cast<int>(random.below(static_cast<std::size_t>(length) + 1));
    };
    const std::wstring letters(random.below(5), static_cast<wchar_t>(L'a' + any(25)));
    const int start = any(text.length());
    if (random.oneIn(12))
        text.assign(String(letters));
    else if (random.oneIn(2))
        text.insert(start, String(letters));
    else
        text.erase(start, start + any(std::min(6, text.length() - start)));
}

void expectSame(const XmlText& text, const Copy& copy) {
    const TextChange change = text.changeSince(copy.mark);
    const int rest = text.length() - change.start - change.inserted;
    const std::wstring now(text.view(0, text.length()));
    const auto at = [](int offset) { return static_cast<std::size_t>(offset); };
    ASSERT_EQ(text.contentAt(copy.mark).view(), copy.content);
    ASSERT_EQ(text.isAsAt(copy.mark), now == copy.content);
    ASSERT_EQ(now.substr(0, at(change.start)), copy.content.substr(0, at(change.start)));
    ASSERT_EQ(now.substr(at(text.length() - rest)),
              copy.content.substr(copy.content.size() - at(rest)));
    ASSERT_EQ(text.oldText(copy.mark, change),
              copy.content.substr(at(change.start), at(change.removed)));
}

} // namespace

TEST(TextLog, BringsEveryMarkedVersionBackInAnyOrder) {
    Random random(4);
    for (int round = 0; round < 200; ++round) {
        XmlText text;
        text.assign(String(L"some text"));
        std::list<Copy> copies;
        std::vector<String> shared;
        for (int step = 0; step < 40; ++step) {
            if (random.oneIn(5))
                copies.emplace_back(text);
            if (random.oneIn(6))
                shared.push_back(text.content());
            edit(text, random);
            if (!copies.empty() && random.oneIn(4)) {
                const auto copy =
                    std::next(copies.begin(), static_cast<long>(random.below(copies.size())));
                ASSERT_NO_FATAL_FAILURE(expectSame(text, *copy));
                if (random.oneIn(2)) {
                    text.goBackTo(copy->mark);
                    ASSERT_EQ(text.view(0, text.length()), copy->content);
                }
                if (random.oneIn(3))
                    copies.erase(copy);
            }
        }
    }
}
