#include "templates/Variables.h"

#include "foundation/xml/Element.h"
#include "templates/TemplateElements.h"

using Core::Vector;
using TemplateElements::valueOf;
using Xml::Element;

namespace {

constexpr const wchar_t* variableName = L"variable";

} // namespace

Vector<QFDVariable> Variables::of(const Element& root) {
    Vector<QFDVariable> variables;
    for (const Element* element : TemplateElements::childrenOf(root, variableName))
        variables.push_back({valueOf(*element, L"name"), valueOf(*element, L"value")});
    return variables;
}

void Variables::override(Element& root, const Vector<QFDVariable>& variables) {
    for (const QFDVariable& variable : variables)
        TemplateElements::requireText({variable.name, variable.value});
    TemplateElements::removeAll(root, variableName);
    for (const QFDVariable& variable : variables) {
        Element& element = TemplateElements::append(root, variableName);
        element.set_attribute(L"name", variable.name);
        element.set_attribute(L"value", variable.value);
    }
}
