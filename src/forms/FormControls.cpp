// The controls of a form: found, unchecked, given a look.

#include "document/Attributes.h"
#include "document/Document.h"
#include "document/NamespaceBinding.h"
#include "document/RecordedCommand.h"
#include "document/TextRewrite.h"
#include "forms/Forms.h"
#include "text/Markup.h"
#include "text/MarkupMatcher.h"

#include <cstddef>
#include <set>
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

/// Whether the properties are all that stands in the tag, so that it can be written anew without a
/// loss. They are not where the tag is torn or says something twice.
bool isReadWhole(const XmlText& text, int control, const PropertyCollection& properties) {
    const XmlText::View tag = text.view(control, text.tagEnd(control) + 1);
    MarkupMatcher matcher(tag);
    std::size_t attributes = 0;
    for (int at = text.nextAttribute(control + 1); at >= 0; at = text.nextAttribute(at))
        ++attributes;
    return matcher.readContent() && matcher.position() == static_cast<int>(tag.size()) &&
           properties.getPropertyList().size() == attributes;
}

/// New attributes for one control.
struct ControlEdit {
    int control;
    PropertyCollection properties;
};

/// The edits that change anything; where the attributes stay the same the control stays as it is
/// spelt.
class ControlEdits {
public:
    template <typename Edit>
    ControlEdits(const Document& document, const std::vector<int>& controls, Edit edit) {
        for (const int control : controls) {
            const PropertyCollection old = propertiesOf(document, control);
            const PropertyCollection edited = edit(old);
            if (asText(edited) == asText(old) || !isReadWhole(document.text(), control, old))
                continue;
            edits_.push_back({control, edited});
            notePrefixes(old, edited);
        }
    }

    /// One undo step, which is taken back where the text would have a name of no namespace.
    void carryOut(Document& document) const {
        if (edits_.empty())
            return;
        RecordedCommand command(document);
        document.recordCaret();
        const int end = document.text().next(edits_.back().control);
        const int moved = rewrite(document);
        const bool areBound = bindPrefixes(document, edits_.front().control, end + moved);
        document.recordCaret();
        if (!areBound || !command.mayStand())
            command.takeBack();
    }

private:
    void notePrefixes(const PropertyCollection& old, const PropertyCollection& edited) {
        for (const EditableProperty& property : edited.getPropertyList())
            if (!old.containsProperty(property.getName()))
                prefixes_.insert(property.getNamespace());
    }

    /// Answers by how much the text behind moved.
    int rewrite(Document& document) const {
        TextRewrite rewrite(document, TextRewrite::Records::OfTheWhole);
        for (const ControlEdit& edit : edits_)
            Attributes::planReplacement(document, edit.control, edit.properties, rewrite);
        return rewrite.apply();
    }

    /// Declares on the root what of the new names' prefixes is bound nowhere around a name in the
    /// range; answers whether all are bound then.
    bool bindPrefixes(Document& document, int start, int end) const {
        for (const String& prefix : NamespaceBinding::unbound(document.text(), start, end))
            if (prefixes_.contains(prefix) && (!Attributes::isStandardNamespace(prefix) ||
                                               Attributes::declareStandard(document, prefix) <= 0))
                return false;
        return true;
    }

    std::vector<ControlEdit> edits_;
    std::set<String> prefixes_; // of names that are new to a control
};

template <typename Edit>
void editControls(Document& document, const std::vector<int>& controls, Edit edit) {
    ControlEdits(document, controls, edit).carryOut(document);
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

/// The name may be given as it stands in the text or decoded.
void Forms::uncheckGroup(Document& document, const String& name) {
    const String group = Markup::unescaped(name);
    editControls(document, controlsOfForm(document), [&](PropertyCollection properties) {
        if (typeIn(properties) == nameOf(Xml::FormControlType::RadioButton) &&
            Markup::unescaped(properties.getPropertyValue(L"qf:name")) == group &&
            properties.getPropertyValue(L"qf:checked") == L"true")
            properties.setProperty({L"qf:checked", L"false"});
        return properties;
    });
}

void Forms::applySkin(Document& document, PropertyCollection skin) {
    skin.setNamespaceForProperties(L"qf");
    editControls(document, controlsOfForm(document), [&](PropertyCollection properties) {
        properties.addProperties(skin);
        return properties;
    });
}

void Forms::removeSkin(Document& document) {
    editControls(document, controlsOfForm(document), [](PropertyCollection properties) {
        for (const wchar_t* color : {L"fo:color", L"fo:background-color"})
            properties.removePropertyByName(color);
        return properties;
    });
}

void Forms::toggleFlatStyle(Document& document) {
    const int control = selectedControl(document);
    if (control < 0)
        return;
    editControls(document, {control}, [](PropertyCollection properties) {
        if (saysFlat(properties))
            properties.removePropertyByName(style);
        else
            properties.setProperty({style, L"flat"});
        return properties;
    });
}
