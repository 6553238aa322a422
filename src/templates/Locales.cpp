#include "templates/Locales.h"

#include "foundation/xml/Element.h"
#include "templates/TemplateElements.h"

#include <algorithm>

using Core::String;
using Core::Vector;
using TemplateElements::valueOf;
using Xml::Element;

namespace {

constexpr const wchar_t* listName = L"localization";
constexpr const wchar_t* localeName = L"locale";
constexpr const wchar_t* idName = L"language-id";
constexpr const wchar_t* fileName = L"language-file";
constexpr const wchar_t* nameName = L"language-name";

/// Where the locales are; null without them.
Element* listIn(const Element& root) {
    const std::vector<Element*> lists = TemplateElements::childrenOf(root, listName);
    return lists.empty() ? nullptr : lists.front();
}

/// The first locale of that id; null without one.
Element* find(const Element& list, const String& id) {
    for (Element* locale : TemplateElements::childrenOf(list, localeName))
        if (locale->get_attribute(idName) && valueOf(*locale, idName) == id)
            return locale;
    return nullptr;
}

QFDTemplateLocale localeIn(const Element& element) {
    const String id = valueOf(element, idName);
    const String name = valueOf(element, nameName);
    // One that is not named at all stays so.
    const bool isNamedById = element.get_attribute(nameName) && name.empty();
    return {id, valueOf(element, fileName), isNamedById ? id : name};
}

} // namespace

Vector<QFDTemplateLocale> Locales::of(const Element& root) {
    Vector<QFDTemplateLocale> locales;
    if (const Element* list = listIn(root))
        for (const Element* locale : TemplateElements::childrenOf(*list, localeName))
            if (locale->get_attribute(idName))
                locales.push_back(localeIn(*locale));
    return locales;
}

QFDTemplateLocale Locales::defaultOf(const Element& root) {
    const Vector<QFDTemplateLocale> locales = of(root);
    const auto found =
        std::find_if(locales.begin(), locales.end(),
                     [](const QFDTemplateLocale& locale) { return locale.file.empty(); });
    return found == locales.end() ? QFDTemplateLocale() : *found;
}

void Locales::set(Element& root, const QFDTemplateLocale& locale) {
    if (locale.id.empty())
        return;
    TemplateElements::requireText({locale.id, locale.file, locale.name});
    Element* list = listIn(root);
    if (!list)
        list = &TemplateElements::append(root, listName);
    Element* element = find(*list, locale.id);
    if (!element)
        element = &TemplateElements::append(*list, localeName);
    element->set_attribute(idName, locale.id);
    if (!locale.file.empty())
        element->set_attribute(fileName, locale.file);
    element->set_attribute(nameName, locale.name);
}

void Locales::remove(Element& root, const String& id) {
    Element* list = listIn(root);
    Element* locale = list && !id.empty() ? find(*list, id) : nullptr;
    if (locale)
        list->remove_child(locale);
}
