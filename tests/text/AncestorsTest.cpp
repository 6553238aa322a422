// What is found around a place in a text that is asked and edited again and again is what a climb
// from element to element finds that remembers nothing, whatever the text.

#include "properties/RandomCommands.h"
#include "text/Markup.h"
#include "text/XmlTexts.h"

#include <gtest/gtest.h>

#include <array>

using XmlScan::Text;

namespace {

/// Nearly all open elements, of few names or of more than there are marks for.
std::wstring anyTags(Random& random, std::size_t names, std::size_t count) {
    static const std::array<std::wstring, 9> others{L"</b>",
                                                    L"x",
                                                    L"<!-- ' -->",
                                                    L"<fo:b white-space='pre'>",
                                                    L"<c fo:white-space-collapse=''>",
                                                    L"<b xmlns:P='u'>",
                                                    L"<b xmlns:p='v' xmlns:q='w'>",
                                                    L"<b c='",
                                                    L"<>"};
    std::wstring text;
    for (std::size_t i = 0; i < count; ++i)
        text += random.oneIn(5) ? random.oneOf(others)
                                : L"<n" + std::to_wstring(random.below(names)) + L">";
    return text;
}

void expectAsByClimbing(const XmlText& text, int at, Text name, Text limit) {
    const Text all = text.view(0, text.length());
    int named = -1, within = -1, outermost = -1, declaring = -1;
    const int behind = at / 4;
    bool isWithin = true;
    SpaceProperties::Values values;
    for (int element = XmlScan::currentElement(all, at); element >= 0;
         element = XmlScan::currentElement(all, element)) {
        const Text found = XmlScan::tagName(all, element);
        named = named < 0 && (found == name || found == limit) ? element : named;
        within = isWithin && within < 0 && found == name ? element : within;
        outermost = isWithin && found == name && element > behind ? element : outermost;
        isWithin = isWithin && found != limit;
        if (declaring < 0 && Namespaces::declares(Namespaces::of(text, element), L"xmlns:p="))
            declaring = element;
        const SpaceProperties::Values own = SpaceProperties::setBy(all, element, found);
        for (std::size_t property = 0; property < own.size(); ++property)
            values[property] = values[property] ? values[property] : own[property];
        ASSERT_TRUE(text.isAround(element, at)) << element;
        ASSERT_FALSE(text.isAround(element + 1, at)) << element;
    }
    ASSERT_EQ(text.nearestNamed(at, std::array{name, limit}), named);
    ASSERT_EQ(text.ancestorWithin(at, name, limit), within);
    ASSERT_EQ(text.searchAncestor(at, {Core::String(name)},
                                  {.wantOutermost = true, .limit = limit, .behind = behind}),
              outermost);
    ASSERT_EQ(text.declaringAround(at, L"p"), declaring);
    ASSERT_TRUE(text.spacePropertiesAround(at) == values);
    for (const wchar_t* const prefix : {L"p", L"P"}) {
        std::set<Core::String> declared = Namespaces::of(text, at);
        declared.merge(Namespaces::around(text, at));
        const auto entry = declared.lower_bound(Core::String(L"xmlns:") + prefix + L"=");
        ASSERT_EQ(Namespaces::isDeclaredAt(text, prefix, at),
                  entry != declared.end() &&
                      entry->startsWith(Core::String(L"xmlns:") + prefix + L"="));
    }
}

} // namespace

TEST(Ancestors, AreThoseThatAClimbFinds) {
    Random random(1);
    for (int document = 0; document < 24; ++document) {
        const std::size_t names = document % 2 == 0 ? 4 : 90;
        XmlText text = xmlText(Core::String(L"<r>" + anyTags(random, names, 150)));
        for (int question = 0; question < 60; ++question) {
            const auto length = static_cast<std::size_t>(text.length());
            const int at = static_cast<int>(random.below(length));
            const std::wstring name = L"n" + std::to_wstring(random.below(names));
            const std::wstring limit = random.oneIn(2) ? L"b" : L"n1";
            ASSERT_NO_FATAL_FAILURE(expectAsByClimbing(text, at, name, limit))
                << at << " " << name << " in " << wide(text.content());
            if (random.oneIn(2))
                text.insert(at, Core::String(anyTags(random, names, 2)));
            else if (random.oneIn(2))
                text.erase(at, std::min(at + static_cast<int>(random.below(9)), text.length()));
        }
    }
}

// Walks that climb to the root at every step would take hours.
TEST(Ancestors, AreFoundHoweverDeepTheyAreNested) {
    constexpr int depth = 60'000;
    std::wstring units = L"<r><s>";
    for (int i = 0; i < depth; ++i)
        units += L"<a>";
    const XmlText text = xmlText(Core::String(units));
    for (int at = text.length() - 1; at >= 6; at -= 3) {
        ASSERT_EQ(text.ancestor(at, L"s"), 3);
        ASSERT_EQ(text.ancestor(text.length() - 1, L"b"), -1);
        ASSERT_TRUE(text.isAround(3, at));
        ASSERT_EQ(text.outermostAncestor(text.length() - 1, L"a", at - 4), at - 2);
    }
}
