#include "foundation/values/BoxShadow.h"

#include "foundation/values/ColorParse.h"
#include "foundation/values/ParseUtil.h"

#include <utility>
#include <vector>

using Core::String;

namespace {

/// "0" needs no unit.
bool isLength(const String& word, Xml::Length& length) {
    return Xml::Length::parseLength(word, length) || word == L"0";
}

std::vector<String> wordsOf(const String& text) {
    std::vector<String> words;
    int position = 0;
    for (String word = Xml::ParseUtil::extractWordOrFunction(text, position); !word.empty();
         word = Xml::ParseUtil::extractWordOrFunction(text, position))
        words.push_back(word);
    return words;
}

} // namespace

bool Xml::BoxShadow::readFromString(const String& text) {
    std::vector<String> words = wordsOf(text);
    if (words.size() < 3 || !ColorParse::parseColor(words.back()))
        return false;
    const String color = std::move(words.back());
    words.pop_back();
    std::vector<Length> lengths(words.size());
    for (std::size_t i = 0; i < words.size(); ++i)
        if (!isLength(words[i], lengths[i]))
            return false;
    x_ = lengths[0];
    y_ = lengths[1];
    color_ = color;
    return true;
}
