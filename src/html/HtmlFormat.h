#pragma once

#include "foundation/HtmlParser.h"
#include "foundation/String.h"

#include <string_view>

/// How HTML formats text, as far as it is kept: what the elements and their own styles say.
struct HtmlFormat {
    enum class Shift { None, Super, Sub };

    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruck = false;
    Shift shift = Shift::None;
    Core::String color;
    Core::String background;
    Core::String size;
    Core::String family;
    Core::String link;        ///< the address; empty for none
    bool keepsBlanks = false; ///< white space is as it stands

    friend bool operator==(const HtmlFormat&, const HtmlFormat&) = default;

    /// Takes up what an element says. Links that lead to no document or address do not count.
    void apply(const Core::String& element, const HtmlEvents::Attributes& attributes);
    /// The same of one property, which styles and pages mostly call the same.
    void applyStyle(std::wstring_view name, const Core::String& value);

    /// The properties of an inline that formats in this way, each with a blank before it; empty
    /// where nothing is said.
    Core::String properties() const;
    /// The start tag of the link; empty without one.
    Core::String linkTag() const;

private:
    void applyElement(std::wstring_view element);
    void applyDecoration(std::wstring_view value);
};

/// What HTML says in attributes.
namespace HtmlValues {

/// Empty where the element has no such attribute.
Core::String attribute(const HtmlEvents::Attributes& attributes, const wchar_t* name);
/// Calls `visit(name, value)` with the declarations of a style, in their order, the names in small
/// letters.
template <typename Visit>
void forEachDeclaration(const Core::String& style, Visit visit) {
    for (const Core::String& declaration : style.split(L';')) {
        const int colon = declaration.find(L':', 0);
        if (colon <= 0)
            continue;
        Core::String name = declaration.subString(0, static_cast<unsigned>(colon - 1)).toLower();
        Core::String value = declaration.subString(static_cast<unsigned>(colon + 1),
                                                   static_cast<unsigned>(declaration.length()));
        name.trim();
        visit(name, value.trim());
    }
}
/// The value of the last declaration of that name; empty where there is none.
Core::String styleValue(const Core::String& style, const wchar_t* name);
/// A colour that pages know: by name or "#rrggbb"; empty for any other.
Core::String color(const Core::String& value);
/// A number from 1 up to `most`, 1 for any other text.
int count(const Core::String& value, int most);

} // namespace HtmlValues
