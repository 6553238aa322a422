// Forms and controls as markup, and their insertion.

#include "document/Document.h"
#include "document/RecordedCommand.h"
#include "document/caret/Moves.h"
#include "editing/typing/Typing.h"
#include "forms/Forms.h"
#include "foundation/ObjectId.h"
#include "templates/TemplateValues.h"

#include <array>
#include <cstddef>

using Core::String;
using Xml::FormControlType;

namespace {

struct Kind {
    const wchar_t* name;
    const wchar_t* value; // that a new one has
};

/// By the numbers of the types.
constexpr std::array<Kind, 5> kinds{{
    {L"checkbox", L""},
    {L"text", L""},
    {L"button", L"Button"},
    {L"radiobutton", L""},
    {L"submit", L"Submit"},
}};

const Kind& kindOf(FormControlType type) {
    const auto index = static_cast<std::size_t>(type);
    return kinds.at(index < kinds.size() ? index
                                         : static_cast<std::size_t>(FormControlType::Button));
}

/// Puts the expression for a control's value into the template's data; answers the id under which
/// it stands there.
String storedValue(Document& document, const String& expression) {
    PropertyValueEx value(L"qf:value", ObjectId::generate());
    value.setType(PropertyValueType::Dynamic);
    value.setDynamicValue(expression);
    TemplateValues::write(document, {&value, 1});
    return value.getObjectID();
}

/// Inserts the markup that is made, in the same step with what making it has changed.
template <typename Make>
void insertMade(Document& document, bool staysInForm, Make make) {
    if (!Typing::canInsert(document, Forms::inForm({})))
        return;
    RecordedCommand command(document);
    document.recordCaret();
    const Typing::Insertion insertion = Typing::insert(document, make(), true, false);
    document.endTyping();
    if (insertion == Typing::Insertion::Done && staysInForm) {
        Moves::left(document);
        document.recordCaret();
    }
    if (insertion != Typing::Insertion::Done || !command.mayStand())
        command.takeBack();
}

} // namespace

String Forms::nameOf(FormControlType type) {
    return kindOf(type).name;
}

FormControlType Forms::typeNamed(const String& name) {
    const String sought = name.toLower();
    for (std::size_t i = 0; i < kinds.size(); ++i)
        if (sought == kinds[i].name)
            return static_cast<FormControlType>(i);
    return FormControlType::Button;
}

String Forms::inForm(const String& content) {
    return L"<qf:form><fo:block>" + content + L"</fo:block></qf:form>";
}

String Forms::controlMarkup(Document& document, FormControlType type, const String& name,
                            const String& dynamicValue) {
    const Kind& kind = kindOf(type);
    const String valueId = dynamicValue.empty() ? String() : storedValue(document, dynamicValue);
    PropertyCollection attributes;
    attributes.addProperty({L"type", kind.name}, true);
    attributes.addProperty({L"name", name.empty() ? kind.name + ObjectId::generate() : name}, true);
    if (*kind.value != 0)
        attributes.addProperty({L"value", kind.value}, true);
    if (!valueId.empty())
        attributes.addProperty({L"fo:id", valueId}, true);
    return L"<qf:form-control " + attributes.getPropertiesString() + L"/>";
}

void Forms::insertEmptyForm(Document& document) {
    insertMade(document, true, [] { return inForm(L"&#x00A0;"); });
}

void Forms::insertControl(Document& document, FormControlType type, const String& name,
                          const String& dynamicValue) {
    insertMade(document, false, [&] { return controlMarkup(document, type, name, dynamicValue); });
}

void Forms::insertControlInForm(Document& document, FormControlType type) {
    insertMade(document, true, [&] { return inForm(controlMarkup(document, type, {}, {})); });
}
