// The controls of a form: found, unchecked, given a look.

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/RecordedCommand.h"
#include "document/TextRewrite.h"
#include "forms/Forms.h"

#include <vector>

using Core::String;

namespace {

constexpr const wchar_t* controlName = L"qf:form-control";
constexpr const wchar_t* style = L"qf:control-style";

bool isControl(const Document& document, int element) {
    return document.text().tagName(element) == controlName;
}

PropertyCollection propertiesOf(const Document& document, int control) {
    return Attributes::of(document, control);
}

/// In lower case.
String typeIn(const PropertyCollection& properties) {
    return properties.getPropertyValue(L"qf:type").toLower();
}

bool saysFlat(const PropertyCollection& properties) {
    return properties.getPropertyValue(style).toLower() == L"flat";
}

/// Those of the form that begins last before the caret, in the order of the text.
std::vector<int> controlsOfForm(const Document& document) {
    const XmlText& text = document.text();
    const int form = text.previousNamed(document.caret(), L"qf:form");
    const int end = form < 0 ? -1 : text.closingTag(form);
    std::vector<int> controls;
    for (int element = text.nextElement(form); element >= 0 && element < end;
         element = text.nextElement(element))
        if (isControl(document, element))
            controls.push_back(element);
    return controls;
}

String asText(const PropertyCollection& properties) {
    return Attributes::asText(properties, L"qf");
}

/// Gives controls the properties that the edit makes of those they have. Where these stay the same
/// the control stays as it is spelt. A declaration on the root moves the controls, so that it comes
/// before any of them is looked at a second time.
template <typename Controls, typename Edit>
void editControls(Document& document, Controls controls, Edit edit) {
    const auto isChanged = [&](int control) {
        const PropertyCollection old = propertiesOf(document, control);
        return asText(edit(old)) != asText(old);
    };
    bool areChanged = false;
    for (const int control : controls(document))
        areChanged = areChanged || isChanged(control);
    if (!areChanged)
        return;
    carryOut(document, [&] {
        document.recordCaret();
        int shift = 0;
        for (int control : controls(document)) {
            control += shift;
            if (isChanged(control))
                shift += Attributes::declareNamespaces(
                    document, edit(propertiesOf(document, control)), control);
        }
        TextRewrite rewrite(document);
        for (const int control : controls(document))
            if (isChanged(control))
                Attributes::planReplacement(document, control,
                                            edit(propertiesOf(document, control)), rewrite);
        rewrite.apply();
        document.recordCaret();
    });
}

} // namespace

int Forms::previousControl(const Document& document, const String& typeName) {
    const XmlText& text = document.text();
    const int form = text.ancestor(document.caret(), L"qf:form");
    if (form < 0)
        return -1;
    int tag = text.previousTag(document.selectionStart());
    while (tag > form &&
           !(isControl(document, tag) && typeIn(propertiesOf(document, tag)) == typeName))
        tag = text.previousTag(tag);
    return tag > form ? tag : -1;
}

int Forms::selectedControl(const Document& document) {
    const int start = document.selectionStart();
    return isControl(document, start) && document.text().next(start) == document.selectionEnd()
               ? start
               : -1;
}

bool Forms::isFlat(const Document& document, int control) {
    return saysFlat(propertiesOf(document, control));
}

void Forms::uncheckGroup(Document& document, const String& name) {
    editControls(document, controlsOfForm, [&](PropertyCollection properties) {
        if (typeIn(properties) == nameOf(Xml::FormControlType::RadioButton) &&
            properties.getPropertyValue(L"qf:name") == name &&
            properties.getPropertyValue(L"qf:checked") == L"true")
            properties.setProperty({L"qf:checked", L"false"});
        return properties;
    });
}

void Forms::applySkin(Document& document, PropertyCollection skin) {
    skin.setNamespaceForProperties(L"qf");
    editControls(document, controlsOfForm, [&](PropertyCollection properties) {
        properties.addProperties(skin);
        return properties;
    });
}

void Forms::removeSkin(Document& document) {
    editControls(document, controlsOfForm, [](PropertyCollection properties) {
        for (const wchar_t* color : {L"fo:color", L"fo:background-color"})
            properties.removePropertyByName(color);
        return properties;
    });
}

void Forms::toggleFlatStyle(Document& document) {
    const auto selected = [](const Document& document) {
        const int control = selectedControl(document);
        return control < 0 ? std::vector<int>() : std::vector<int>{control};
    };
    editControls(document, selected, [](PropertyCollection properties) {
        if (saysFlat(properties))
            properties.removePropertyByName(style);
        else
            properties.setProperty({style, L"flat"});
        return properties;
    });
}
