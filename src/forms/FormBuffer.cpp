#include "forms/FormBuffer.h"

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/EditableDocumentBuffer.h"
#include "forms/Forms.h"

using Core::String;
using Xml::FormControlType;

FormBuffer EditableDocumentBuffer::getFormBuffer() {
    Document& document = *document_;
    return FormBuffer(document);
}

String FormBuffer::getControlTypeName(FormControlType type) {
    return Forms::nameOf(type);
}

FormControlType FormBuffer::getControlType(const String& name) {
    return Forms::typeNamed(name);
}

void FormBuffer::insertEmptyForm(bool skip) {
    if (!skip)
        Forms::insertEmptyForm(document_);
}

void FormBuffer::insertFormControl(FormControlType type, bool insideForm, bool sameGroup,
                                   const String& dynamicValue) {
    if (!insideForm)
        return Forms::insertControlInForm(document_, type);
    const bool joinsGroup = sameGroup && type == FormControlType::RadioButton;
    const String group =
        joinsGroup ? getPreviousControlAttribute(getControlTypeName(type), L"qf:name") : String();
    Forms::insertControl(document_, type, group, dynamicValue);
}

String FormBuffer::getFormControlXml(FormControlType type, const String& name,
                                     const String& dynamicValue) {
    return Forms::controlMarkup(document_, type, name, dynamicValue);
}

String FormBuffer::getFormControlXml(FormControlType type, bool wrapInForm, const String&) {
    const String control = Forms::controlMarkup(document_, type, {}, {});
    return wrapInForm ? Forms::inForm(control) : control;
}

int FormBuffer::getPreviousControlPos(FormControlType type) const {
    return Forms::previousControl(document_, Forms::nameOf(type));
}

String FormBuffer::getPreviousControlAttribute(const String& typeName,
                                               const String& attribute) const {
    const int control = Forms::previousControl(document_, typeName);
    return Attributes::of(document_, control).getPropertyValue(attribute);
}

void FormBuffer::uncheckRadioButtonGroup(const String& name) {
    Forms::uncheckGroup(document_, name);
}

void FormBuffer::applySkinOnForm(const PropertyCollection& skin) {
    Forms::applySkin(document_, skin);
}

void FormBuffer::removeFormSkin() {
    Forms::removeSkin(document_);
}

bool FormBuffer::isFormControlSelected() const {
    return Forms::selectedControl(document_) >= 0;
}

void FormBuffer::applyFlatStyle() {
    Forms::toggleFlatStyle(document_);
}

bool FormBuffer::hasFlatStyle() const {
    return Forms::isFlat(document_, Forms::selectedControl(document_));
}
