#pragma once

#include "foundation/String.h"
#include "foundation/values/XslProperties.h"
#include "text/XmlScan.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

class Document;

/// The values that properties have in elements, whoever set them: the element itself or one around,
/// by name or by a shorthand, or XSL, which gives each an initial value. Names have no prefix.
///
/// It serves questions about one element after another in a text that does not change meanwhile,
/// and looks at no more elements than it enters and leaves on the way. -1 is no element.
class ComputedProperties {
public:
    explicit ComputedProperties(const Document& document) : document_(document) {}

    Core::String value(int element, std::wstring_view name);
    /// What the element itself says, by name or by a shorthand; nothing where it says nothing.
    std::optional<Core::String> specified(int element, std::wstring_view name);
    /// The element around.
    int parentOf(int element);

private:
    using Name = std::wstring_view;
    using Attribute = std::pair<XmlScan::Text, XmlScan::Text>;
    /// An element and its attributes without their prefix; those of other namespaces are no
    /// properties.
    struct Level {
        int element;
        std::vector<Attribute> attributes;
        bool hasShorthands; ///< whether one of them is a shorthand
    };
    /// A value and the element that says it.
    struct Origin {
        int element;
        Core::String value;
    };
    struct SideName;

    std::optional<Origin> originOf(int element, Name name, const XslProperty* property);
    std::optional<Core::String> specifiedByName(const Level& level, Name name) const;
    std::optional<Core::String> specifiedOnSide(const Level& level, const SideName& name);
    static std::optional<Core::String> attribute(const Level& level, Name name);
    static std::optional<Core::String> componentOf(const Level& level, Name name);
    std::size_t enter(int element);
    Level read(int element) const;

    Core::String initialValue(int element, Name name, const XslProperty* property);
    Core::String resolved(const Origin& origin, Name name);
    Core::String fontSize(int element);

    const Document& document_;
    std::vector<Level> levels_; // an element that was asked about and those around, root first
};
