// A text is changed in a store and in plain memory, and everything is asked of both.

#include "text/store/TextStore.h"

#include "foundation/Encoder.h"
#include "foundation/Wide.h"
#include "properties/RandomCommands.h"
#include "support/Documents.h"
#include "text/ReferenceMarkup.h"
#include "text/StoredTags.h"
#include "text/XmlScan.h"
#include "text/store/StoredContent.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace {

const std::wstring type = L"<!DOCTYPE r [<!ENTITY e '>'><!-- ]> --><?p ]>?>]>";

/// Markup of all kinds, and what tears it.
std::wstring anyMarkup(Random& random, bool mayBeTorn) {
    static const std::vector<std::wstring> whole{
        L"<a>",  L"</a>",    L"<b c='>'>", L"</b>",      L"<d/>",         L"<e f=\"'/\" />",
        L"x y ", L"\x2014 ", L"&amp;",     L"a > b",     L"\xD83D\xDE00", L"- ",
        L"] ",   L"a;",      L"<fo:root>", L"</fo:root>"};
    static const std::vector<std::wstring> rare{
        L"<!-- a > <b> -->", L"<![CDATA[ <a> ]]>", L"<?p <a?>", L"<!---->", L"'", L"\""};
    static const std::vector<std::wstring> torn{
        L"<",           L">",      L"<!",        L"<!-",       L"<!--",      L"--",
        L"-->",         L"<![CDA", L"<![CDATA[", L"]]>",       L"<?",        L"?>",
        L"/>",          L"</",     L"&",         L"&a",        L"<a b='<'>", L"<!DOCTYPE",
        L"<!DOCTYPE [", L"<>",     L"<!x>",      L"<?p <a>?>", L"<a =>",     L"<a '>'>"};
    return random.oneOf(mayBeTorn && random.oneIn(40) ? torn : random.oneIn(12) ? rare : whole);
}

std::wstring anyText(Random& random, std::size_t pieces, bool mayBeTorn) {
    std::wstring text = random.oneIn(mayBeTorn ? 30 : 1000) ? type : L"";
    for (std::size_t i = 0; i < pieces; ++i)
        text += anyMarkup(random, mayBeTorn);
    return text;
}

/// Another place near one, as a rule where a unit begins.
std::size_t placeNear(Random& random, const std::wstring& text, std::size_t place, bool mayTear) {
    if (mayTear && random.oneIn(20))
        return place;
    return static_cast<std::size_t>(XmlScan::unitStart(text, static_cast<int>(place)));
}

/// What the store says of a place otherwise than scans do.
std::string differenceAt(const TextStore& store, const std::wstring& text, int place) {
    const StoredTags tags(store);
    const wchar_t unit = text[static_cast<std::size_t>(place)];
    const TextView name = place % 2 == 0 ? L"b" : L"/a";
    const auto firstNamed = [&](auto nextTag) {
        int tag = nextTag(place);
        while (tag >= 0 && XmlScan::tagName(text, tag) != name)
            tag = nextTag(XmlScan::stepForward(text, tag));
        return tag;
    };
    const auto nextTag = [&](int at) { return XmlScan::nextTag(text, at); };
    const MarkKinds kinds = MarkKinds::named(name) | MarkKinds::named(XmlScan::foRoot);
    const auto nextOfItsKind = [&](int at) { return at < 0 ? -1 : tags.nextTag(at, kinds); };
    const MarkKinds any = MarkKinds::tagStarts() | MarkKinds{MarkKind::InstructionStart};
    const std::vector<int> ended = tagsEndingBy(text, place);
    const int last = ended.empty() ? -1 : ended.back();
    std::vector<std::tuple<const char*, int, int>> answers{
        {"element around", tags.elementAround(place), openElementIn(text, ended)},
        {"next tag", tags.nextTag(place, MarkKinds::tagStarts()), nextTag(place)},
        {"next named", firstNamed(nextOfItsKind), firstNamed(nextTag)},
        {"previous tag", tags.previousTag(place, any), last},
        {"self-closing", tags.selfClosingAt(place), XmlScan::selfClosingAt(text, place)},
        {"tag end", tags.tagEnd(place), XmlScan::tagEnd(text, place)}};
    if (unit == L'<')
        answers.emplace_back("next", tags.next(place), XmlScan::stepForward(text, place));
    if (unit == L'<' && tags.next(place) >= 0 && XmlScan::closingAt(text, place))
        answers.emplace_back("start tag", tags.startTag(place),
                             startTagIn(text, tagsEndingBy(text, XmlScan::unitEnd(text, place))));
    else
        answers.emplace_back("start tag", tags.startTag(place),
                             XmlScan::selfClosingAt(text, place) ? place : -1);
    if (unit == L'>') {
        const int start = XmlScan::unitStart(text, place);
        const bool endsMarkup = start < place && XmlScan::unitEnd(text, start) == place + 1;
        const bool isBehindMarkup = text.find(L'<') < static_cast<std::size_t>(place);
        answers.emplace_back("text", tags.isText(place), !endsMarkup && isBehindMarkup);
    }
    for (const auto& [question, stored, scanned] : answers)
        if (stored != scanned)
            return std::string(question) + " " + std::to_string(stored) + ", not " +
                   std::to_string(scanned) + " at " + std::to_string(place);
    return {};
}

/// The same of a place around one, of which those in sections are none.
std::string differenceAround(const TextStore& store, const std::wstring& text, Random& random) {
    const auto position = static_cast<int>(random.below(text.size()));
    const int start = XmlScan::unitStart(text, position);
    const bool isInMarkup = start < position && text[static_cast<std::size_t>(start)] == L'<';
    const StoredTags tags(store);
    if (tags.markupAround(position) != (isInMarkup ? start : -1))
        return "markup around " + std::to_string(position);
    const int place = random.oneOf(std::vector{position, start, XmlScan::nextTag(text, position),
                                               XmlScan::unitEnd(text, start) - 1});
    if (!XmlScan::isValid(text, place))
        return {};
    if (!tags.know(place))
        return isInSection(text, place) ? "" : "whether it knows " + std::to_string(place);
    return differenceAt(store, text, place);
}

/// What a text in pieces answers otherwise than the same in one.
std::string differenceIn(const Core::String& stored, const Core::String& plain, Random& random) {
    const auto length = static_cast<std::size_t>(plain.length());
    const auto a = static_cast<Core::String::Size>(random.below(length + 2));
    const auto b = static_cast<Core::String::Size>(random.below(length + 2));
    if (stored.length() != plain.length() || stored.subString(a, b) != plain.subString(a, b))
        return "length or part";
    for (const wchar_t* what : {L"</a>", L"<", L"\x2014", L"", L"none"})
        if (stored.find(what, a) != plain.find(what, a) ||
            stored.rFind(what, a) != plain.rFind(what, a))
            return "search";
    if (a < length && (stored[static_cast<int>(a)] != plain[static_cast<int>(a)] ||
                       stored.rFind(plain.charAt(a)) != plain.rFind(plain.charAt(a))))
        return "unit";
    Core::String changed = stored;
    changed.append(L"x");
    return changed == plain + L"x" && stored == plain ? "" : "whole";
}

} // namespace

TEST(TextStore, HoldsAndAnswersWhatPlainMemoryDoes) {
    const std::size_t rounds = setting("FORME_RANDOM_COMMANDS", 600);
    Random random(static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1)));
    std::size_t asked = 0;
    for (std::size_t round = 0; round < rounds;) {
        const bool mayTear = random.oneIn(4);
        std::wstring plain = random.oneIn(4) ? L"\n<?xml version='1.0'?>" + type : L"";
        plain += anyText(random, random.below(400) * random.below(20), mayTear);
        TextStore store(plain);
        std::vector<std::pair<TextStore, std::wstring>> copies;
        for (std::size_t change = random.below(120); change > 0; --change, ++round) {
            const std::size_t at =
                placeNear(random, plain, random.below(plain.size() + 1), mayTear);
            const std::size_t most = random.oneIn(20) ? plain.size() : 8;
            const std::size_t end = placeNear(
                random, plain, at + random.below(std::min(most, plain.size() - at) + 1), mayTear);
            const std::size_t count = std::max(at, end) - at;
            const std::wstring with =
                anyText(random, random.below(random.oneIn(30) ? 900 : 3), mayTear);
            if (random.oneIn(10))
                copies.emplace_back(store, plain);
            plain.replace(at, count, with);
            store.replace(static_cast<int>(at), static_cast<int>(count), with);
            ASSERT_EQ(store.fault(), "");
            ASSERT_EQ(store.length(), static_cast<int>(plain.size()));
            ASSERT_EQ(std::wstring(TextView(store)), plain);
            const std::size_t place = random.below(plain.size() + 1);
            const TextView view(store);
            for (const wchar_t unit : {L'<', L'\x2014', L'q'}) {
                ASSERT_EQ(view.find(unit, place), TextView(plain).find(unit, place));
                ASSERT_EQ(view.rfind(unit, place), TextView(plain).rfind(unit, place));
            }
            ASSERT_EQ(view.findEither(L'&', L'<', place), plain.find_first_of(L"&<", place));
            ASSERT_EQ(view.find(L"</a>", place), TextView(plain).find(L"</a>", place));
            ASSERT_EQ(view.rfind(L"</a>", place), TextView(plain).rfind(L"</a>", place));
            if (!store.isRegular() || place == plain.size())
                continue;
            ++asked;
            ASSERT_EQ(differenceAround(store, plain, random), "")
                << "in " << Core::Encoder::toDisplayText(Core::String(plain));
        }
        for (const auto& [copy, then] : copies) {
            ASSERT_EQ(std::wstring(TextView(copy)), then);
            ASSERT_EQ(copy.fault(), "");
            const Core::String content(std::make_shared<StoredContent>(copy));
            ASSERT_EQ(differenceIn(content, Core::String(then), random), "");
        }
    }
    EXPECT_GT(asked, rounds / 3);
}

TEST(TextStore, AnswersWhatScansDoInDocumentsThatPeopleWrote) {
    Random random(1);
    std::size_t regular = 0;
    const auto paths = corpusAndSamples();
    for (const std::filesystem::path& path : paths) {
        const std::wstring text(textOf(path).view());
        const TextStore store(text);
        if (!store.isRegular())
            continue; // sections that hold what looks like the beginning of others
        ++regular;
        for (int i = 0; i < 20; ++i)
            ASSERT_EQ(differenceAround(store, text, random), "") << path;
    }
    EXPECT_GE(20 * regular, 19 * paths.size());
}

// What is looked for from far away is not to be compared with each paragraph between.
TEST(TextStore, TellsElementsThatDocumentsHoldMostOfFromThoseThatHoldMuch) {
    const Core::StringArray names = words(
        L"fo:block fo:inline fo:table-cell fo:table-row fo:table-column fo:list-item fo:list-block "
        L"fo:list-item-label fo:list-item-body fo:table fo:table-body fo:flow fo:static-content "
        L"fo:page-sequence fo:root");
    for (const Core::String& a : names)
        for (const Core::String& b : names)
            EXPECT_TRUE(&a == &b || MarkKinds::named(a) != MarkKinds::named(b))
                << wide(a) << " " << wide(b);
}
