// Forms and their controls.

#include "calls/Calls.h"
#include "calls/Rows.h"

#include <forme/forms/FormBuffer.h>

using Core::String;
using F = FormBuffer;
using Xml::FormControlType;

template <>
struct Wire<FormControlType> {
    static constexpr const char* name =
        "control type (0 check box, 1 text, 2 button, 3 radio button, 4 submit)";
    static bool matches(const Json& value) { return Wire<int>::matches(value); }
    static FormControlType read(const Json& value) {
        return static_cast<FormControlType>(value.get<int>());
    }
    static Json write(FormControlType value) { return static_cast<int>(value); }
};

std::vector<Operation> Calls::forms() {
    const Rows forms([](Session& session) { return session.document().getFormBuffer(); });
    return {
        forms("getControlTypeName", &F::getControlTypeName, {"type"}),
        forms("getControlType", &F::getControlType, {"name"}),
        forms("insertEmptyForm", &F::insertEmptyForm, {"skip"}),
        forms("insertFormControl", &F::insertFormControl,
              {"type", "insideForm", "sameGroup", "dynamicValue"}),
        forms(
            "getFormControlXml",
            overload<String(FormControlType, const String&, const String&)>(&F::getFormControlXml),
            {"type", "name", "dynamicValue"}),
        forms("getFormControlXml",
              overload<String(FormControlType, bool, const String&)>(&F::getFormControlXml),
              {"type", "wrapInForm", "value"}),
        forms("getPreviousControlPos", &F::getPreviousControlPos, {"type"}),
        forms("getPreviousControlAttribute", &F::getPreviousControlAttribute,
              {"typeName", "attribute"}),
        forms("uncheckRadioButtonGroup", &F::uncheckRadioButtonGroup, {"name"}),
        forms("applySkinOnForm", &F::applySkinOnForm, {"skin"}),
        forms("removeFormSkin", &F::removeFormSkin),
        forms("isFormControlSelected", &F::isFormControlSelected),
        forms("applyFlatStyle", &F::applyFlatStyle),
        forms("hasFlatStyle", &F::hasFlatStyle),
    };
}
