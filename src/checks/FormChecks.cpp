// Forms and what happens at their edges, groups of radio buttons, skins.

#include "checks/Check.h"
#include "checks/Keys.h"
#include "forms/FormBuffer.h"

using namespace Keys;
using Buffer = EditableDocumentBuffer;
using Xml::FormControlType;

namespace {

void newForm(Buffer& document) {
    document.getFormBuffer().insertEmptyForm(false);
}

void addToGroup(Buffer& document) {
    document.getFormBuffer().insertFormControl(FormControlType::RadioButton, true, true, L"");
}

void paint(Buffer& document) {
    PropertyCollection skin;
    skin.addProperty({L"fo:color", L"red"}, true);
    skin.addProperty({L"fo:background-color", L"white"}, true);
    document.getFormBuffer().applySkinOnForm(skin);
}

void unpaint(Buffer& document) {
    document.getFormBuffer().removeFormSkin();
}

void flatten(Buffer& document) {
    document.getFormBuffer().applyFlatStyle();
}

constexpr Check formChecks[] = {
    {L"a new form takes the caret", L"<B>|_</B>", {newForm}, L"<B><F><B>|_</B></F>_</B>"},
    {L"Backspace behind a form takes it", L"<B>|_</B>", {newForm, right, backspace}, L"<B>|_</B>"},
    {L"Right leaves a form", L"<B><F><B>|_</B></F>_</B>", {right}, L"<B><F><B>_</B></F>|_</B>"},
    {L"Left enters a form", L"<B><F><B>_</B></F>|_</B>", {left}, L"<B><F><B>|_</B></F>_</B>"},
    {L"Enter in an empty form makes a line before it",
     L"<B><F><B>|_</B></F>_</B>",
     {enter},
     L"<B>|_</B>\n<B><F><B>_</B></F>_</B>"},
    {L"Enter at the end of a form makes a line behind it",
     L"<B><F><B>a|</B></F></B>",
     {enter},
     L"<B><F><B>a</B></F></B>\n<B>|_</B>"},
    {L"Enter between forms makes a line before both",
     L"<B>|_</B>",
     {newForm, right, newForm, enter},
     L"<B>|_</B>\n<B><F><B>_</B></F><F><B>_</B></F>_</B>"},
    {L"Shift+Enter stays in the form",
     L"<B><F><B>|_</B></F>_</B>",
     {softBreak},
     L"<B><F><B>_<B />|_</B></F>_</B>"},
    {L"the last word of a form leaves a placeholder",
     L"<B><F><B>|word</B></F></B>",
     {deleteWord, deleteWord},
     L"<B><F><B>|_</B></F></B>"},
    {L"Backspace does not join into a form",
     L"<B><F><B>a</B></F></B>\n<B><F><B>|b</B></F></B>",
     {backspace},
     L"<B><F><B>a</B></F></B>\n<B><F><B>|b</B></F></B>"},
    {L"a radio button joins a group",
     L"<B><F><B><K type=\"radiobutton\" name=\"r\"/>a|</B></F></B>",
     {addToGroup},
     L"<B><F><B><K type=\"radiobutton\" name=\"r\"/>a<K type=\"radiobutton\" "
     L"name=\"r\"/>|</B></F></B>"},
    {L"a group is unchecked",
     L"<B><F><B><K type=\"radiobutton\" name=\"r\" checked=\"true\"/><K type=\"checkbox\" "
     L"name=\"r\" checked=\"true\"/>a|</B></F></B>",
     {[](Buffer& document) { document.getFormBuffer().uncheckRadioButtonGroup(L"r"); }},
     L"<B><F><B><K type=\"radiobutton\" name=\"r\" checked=\"false\"/><K type=\"checkbox\" "
     L"name=\"r\" checked=\"true\"/>a|</B></F></B>"},
    {L"a skin is put on every control of one form",
     L"<B><F><B><K type=\"text\"/></B></F><F><B><K type=\"text\"/><K "
     L"type=\"submit\"/>a|</B></F></B>",
     {paint},
     L"<B><F><B><K type=\"text\"/></B></F><F><B><K type=\"text\" fo:color=\"red\" "
     L"fo:background-color=\"white\"/><K type=\"submit\" fo:color=\"red\" "
     L"fo:background-color=\"white\"/>a|</B></F></B>"},
    {L"a skin is taken off again",
     L"<B><F><B><K type=\"text\" name=\"t\"/>a|</B></F></B>",
     {paint, unpaint},
     L"<B><F><B><K type=\"text\" name=\"t\"/>a|</B></F></B>"},
    {L"a selected control becomes flat",
     L"<B><F><B>^<K type=\"text\"/>|a</B></F></B>",
     {flatten},
     L"<B><F><B>^<K type=\"text\" control-style=\"flat\"/>|a</B></F></B>"},
};

} // namespace

std::span<const Check> Checks::ofForms() {
    return formChecks;
}
