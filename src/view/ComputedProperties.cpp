#include "view/ComputedProperties.h"

#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "foundation/values/OneOf.h"
#include "foundation/values/Shorthands.h"
#include "view/FontSize.h"
#include "view/Places.h"

#include <algorithm>
#include <array>

using Core::String;
using XmlScan::Text;

namespace {

using Name = std::wstring_view;

constexpr Text foPrefix = L"fo:";
constexpr Name inherit = L"inherit";
constexpr Name fontSizeName = L"font-size";

// Sides, which have two names each

/// Where a writing mode puts the sides of a block: "before", "after", "start" and "end".
struct Sides {
    Name writingMode;
    std::array<Name, 4> absolute;
};
constexpr std::array<Name, 4> relativeSides{L"before", L"after", L"start", L"end"};
constexpr std::array<Sides, 3> writingModes{{{L"lr", {L"top", L"bottom", L"left", L"right"}},
                                             {L"rl", {L"top", L"bottom", L"right", L"left"}},
                                             {L"tb", {L"right", L"left", L"top", L"bottom"}}}};

bool isSide(Name word) {
    return isOneOf(word,
                   {L"before", L"after", L"start", L"end", L"top", L"right", L"bottom", L"left"});
}

const Sides& sidesOf(const String& writingMode) {
    const auto sides =
        std::find_if(writingModes.begin(), writingModes.end(), [&](const Sides& each) {
            return writingMode.view().starts_with(each.writingMode);
        });
    return sides == writingModes.end() ? writingModes.front() : *sides;
}

// Components

/// What a property without its components says of a component, and a component of the property.
bool isLengthComponent(Name component) {
    return isOneOf(component, {L"minimum", L"optimum", L"maximum", L"length", L"within-line",
                               L"within-column", L"within-page", L"block-progression-direction",
                               L"inline-progression-direction"});
}

String initialOfComponent(Name component, const String& initial) {
    if (component == L"precedence")
        return L"0";
    return component == L"conditionality" ? String(L"discard") : initial;
}

/// One name for one weight.
String weightOf(const String& value) {
    if (value == L"400")
        return L"normal";
    return value == L"700" ? String(L"bold") : value;
}

/// Whose initial value is the color of the text.
bool isBorderColor(Name name) {
    return name.starts_with(L"border-") && name.ends_with(L"-color");
}

} // namespace

/// A name such as "border-top-width", taken apart.
struct ComputedProperties::SideName {
    Name front; ///< "border-"
    Name side;
    Name rest; ///< "-width"

    /// Nothing for a name of no side.
    static std::optional<SideName> of(Name name) {
        const std::size_t start = name.find(L'-') + 1;
        if (!isOneOf(name.substr(0, start), {L"border-", L"padding-"}))
            return std::nullopt;
        const std::size_t end = std::min(name.find(L'-', start), name.size());
        return SideName{name.substr(0, start), name.substr(start, end - start), name.substr(end)};
    }
    String with(Name other) const { return String(front) + String(other) + String(rest); }
};

// Values

String ComputedProperties::value(int element, Name name) {
    if (name == fontSizeName)
        return fontSize(element);
    const Name base = name.substr(0, name.find(L'.'));
    const XslProperty* const property = XslProperties::find(base);
    const std::optional<Origin> origin = originOf(element, name, property);
    return origin ? resolved(*origin, name) : initialValue(element, name, property);
}

std::optional<ComputedProperties::Origin>
ComputedProperties::originOf(int element, Name name, const XslProperty* property) {
    for (; element >= 0; element = parentOf(element)) {
        std::optional<String> value = specified(element, name);
        if (value && value->view() != inherit)
            return Origin{element, std::move(*value)};
        if (!value && !(property && property->inherits))
            break;
    }
    return std::nullopt;
}

String ComputedProperties::initialValue(int element, Name name, const XslProperty* property) {
    if (!property)
        return {};
    if (isBorderColor(name))
        return value(element, L"color");
    const std::size_t dot = name.find(L'.');
    return dot == Name::npos ? String(property->initial)
                             : initialOfComponent(name.substr(dot + 1), String(property->initial));
}

String ComputedProperties::resolved(const Origin& origin, Name name) {
    if (name == L"font-weight")
        return weightOf(origin.value);
    if (origin.value.empty() && isBorderColor(name))
        return value(origin.element, L"color"); // a shorthand has left it out
    const std::optional<float> factor = FontSize::factorOf(origin.value);
    const bool isBySize = factor && (origin.value.endsIn(L"em") || name == L"line-height");
    return isBySize ? FontSize::times(*factor, fontSize(origin.element)) : origin.value;
}

/// The factors on the way out to a size by itself.
String ComputedProperties::fontSize(int element) {
    const XslProperty* const property = XslProperties::find(fontSizeName);
    float factors = 1;
    String size(property->initial);
    for (auto origin = originOf(element, fontSizeName, property); origin;
         origin = originOf(parentOf(origin->element), fontSizeName, property)) {
        const std::optional<float> factor = FontSize::factorOf(origin->value);
        if (!factor) {
            size = origin->value;
            break;
        }
        factors *= *factor;
    }
    const String length = FontSize::asLength(size);
    return factors == 1 ? length : FontSize::times(factors, length);
}

// What an element says

std::optional<String> ComputedProperties::specified(int element, Name name) {
    const Level& level = levels_[enter(element)];
    if (level.attributes.empty())
        return std::nullopt;
    if (const std::optional<SideName> side = SideName::of(name); side && isSide(side->side))
        return specifiedOnSide(level, *side);
    if (const std::size_t dot = name.find(L'.'); dot != Name::npos) {
        auto value = attribute(level, name);
        return value || !isLengthComponent(name.substr(dot + 1))
                   ? value
                   : attribute(level, name.substr(0, dot));
    }
    return specifiedByName(level, name);
}

/// A shorthand that makes no sense says nothing.
std::optional<String> ComputedProperties::specifiedByName(const Level& level, Name name) const {
    if (auto value = attribute(level, name))
        return value;
    if (level.hasShorthands)
        for (const Name shorthand : Shorthands::of(name))
            if (const auto whole = attribute(level, shorthand))
                if (auto value = Shorthands::valueIn(shorthand, *whole, name))
                    return value;
    return componentOf(level, name);
}

/// A property of which only a component is told.
std::optional<String> ComputedProperties::componentOf(const Level& level, Name name) {
    for (const auto& [attribute, value] : level.attributes) {
        const bool isComponent = attribute.size() > name.size() && attribute.starts_with(name);
        const Text component = isComponent ? attribute.substr(name.size()) : Text();
        if (component == L".optimum" || component == L".length")
            return String(value);
    }
    return std::nullopt;
}

/// The absolute name of a side speaks before the relative one.
std::optional<String> ComputedProperties::specifiedOnSide(const Level& level,
                                                          const SideName& name) {
    const Sides& sides = sidesOf(value(level.element, L"writing-mode"));
    for (std::size_t side = 0; side < relativeSides.size(); ++side) {
        if (name.side != relativeSides[side] && name.side != sides.absolute[side])
            continue;
        auto value = specifiedByName(level, name.with(sides.absolute[side]).view());
        return value ? value : specifiedByName(level, name.with(relativeSides[side]).view());
    }
    return std::nullopt;
}

std::optional<String> ComputedProperties::attribute(const Level& level, Name name) {
    const auto found =
        std::find_if(level.attributes.begin(), level.attributes.end(),
                     [&](const Attribute& attribute) { return attribute.first == name; });
    return found == level.attributes.end() ? std::nullopt : std::optional(String(found->second));
}

// The elements around

int ComputedProperties::parentOf(int element) {
    const std::size_t place = enter(element);
    return place == 0 ? -1 : levels_[place - 1].element;
}

/// From one element to the next most of the way is the same.
std::size_t ComputedProperties::enter(int element) {
    const auto startsBefore = [](const Level& level, int start) { return level.element < start; };
    auto kept = levels_.begin();
    std::vector<int> entered;
    for (int outer = element; outer >= 0; outer = document_.text().elementAround(outer)) {
        const auto known = std::lower_bound(levels_.begin(), levels_.end(), outer, startsBefore);
        if (known != levels_.end() && known->element == outer) {
            kept = known + 1;
            break;
        }
        entered.push_back(outer);
    }
    if (entered.empty())
        return static_cast<std::size_t>(kept - levels_.begin()) - 1;
    levels_.erase(kept, levels_.end());
    for (auto inner = entered.rbegin(); inner != entered.rend(); ++inner)
        levels_.push_back(read(*inner));
    return levels_.size() - 1;
}

/// One without a prefix counts as its element's, but gives way to one written out.
ComputedProperties::Level ComputedProperties::read(int element) const {
    const XmlText& text = document_.text();
    const bool isFo = text.tagName(element).starts_with(foPrefix);
    std::vector<Attribute> written;
    std::vector<Attribute> implied;
    for (int at = text.nextAttribute(element + 1); at >= 0; at = text.nextAttribute(at)) {
        const Text name = text.attributeName(at);
        if (name.starts_with(foPrefix))
            written.emplace_back(name.substr(foPrefix.size()), text.attributeValue(at));
        else if (isFo || name == L"xml:lang")
            implied.emplace_back(name, text.attributeValue(at));
    }
    written.insert(written.end(), implied.begin(), implied.end());
    const bool hasShorthands =
        std::any_of(written.begin(), written.end(), [](const Attribute& attribute) {
            return std::find(Shorthands::names.begin(), Shorthands::names.end(), attribute.first) !=
                   Shorthands::names.end();
        });
    return {element, std::move(written), hasShorthands};
}

String EditableDocumentBuffer::getComputedProperty(const String& name, int position) const {
    const Document& document = *document_;
    const int element = position == -1 ? document.text().elementAround(document.caret())
                                       : Places::elementHolding(document, position);
    if (element < 0)
        return {};
    const String local = name.startsWith(L"fo:") ? name.substringAfter(L":") : name;
    return ComputedProperties(document).value(element, local.view());
}
