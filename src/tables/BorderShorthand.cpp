#include "tables/BorderShorthand.h"

#include "foundation/values/BorderStyle.h"
#include "foundation/values/BorderWidth.h"
#include "foundation/values/ColorParse.h"
#include "foundation/values/ParseUtil.h"

#include <algorithm>
#include <vector>

using Core::String;

namespace {

struct Part {
    bool (*is)(const String& word);
    String BorderInfo::*place;
};

bool isWidth(const String& word) {
    Xml::BorderWidth width;
    return Xml::BorderWidth::parseBorderWidth(word, width);
}

bool isStyle(const String& word) {
    return BorderStyle::contains(word.view());
}

} // namespace

void BorderShorthand::parse(const String& text, BorderInfo& info) {
    std::vector<Part> left{{isWidth, &BorderInfo::width},
                           {isStyle, &BorderInfo::style},
                           {Xml::ColorParse::parseColor, &BorderInfo::color}};
    for (int position = 0; !left.empty();) {
        const String word = Xml::ParseUtil::extractWordOrFunction(text, position);
        const auto part =
            std::find_if(left.begin(), left.end(), [&](const Part& each) { return each.is(word); });
        if (part == left.end())
            return;
        info.*part->place = word;
        left.erase(part);
    }
}

String BorderShorthand::styleIn(const String& text) {
    BorderInfo info{{}, {}, L"solid"};
    parse(text, info);
    return info.style;
}
