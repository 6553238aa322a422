#include "text/SpaceProperties.h"

using XmlScan::Text;

namespace {

constexpr Text foPrefix = L"fo:";

constexpr std::array<Text, SpaceProperties::Count> names{
    L"white-space", L"white-space-treatment", L"white-space-collapse", L"linefeed-treatment"};

} // namespace

SpaceProperties::Values SpaceProperties::setBy(Text text, int element, Text name) {
    Values implied;
    Values values;
    const bool isFo = name.starts_with(foPrefix);
    for (int at = XmlScan::nextAttribute(text, element + 1); at >= 0;
         at = XmlScan::nextAttribute(text, at)) {
        const Text attribute = XmlScan::attributeName(text, at);
        const bool isExplicit = attribute.starts_with(foPrefix);
        if (!isExplicit && !isFo)
            continue;
        const Text local = isExplicit ? attribute.substr(foPrefix.size()) : attribute;
        for (std::size_t property = 0; property < Count; ++property)
            if (local == names[property])
                (isExplicit ? values : implied)[property] = XmlScan::attributeValue(text, at);
    }
    for (std::size_t property = 0; property < Count; ++property)
        if (!values[property])
            values[property] = implied[property];
    return values;
}
