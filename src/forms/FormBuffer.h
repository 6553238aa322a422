#pragma once

#include "forms/FormControlType.h"
#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/values/PropertyCollection.h"

class Document;

/// The forms of a document: a view of the document buffer that it was taken from, which owns the
/// text and must outlive it. A host takes one for a command or a question:
///
///     document->getFormBuffer().insertEmptyForm(false);
///
/// A form is a "qf:form" in a block; it holds blocks and, in these, controls, which a renderer
/// turns into fields to be filled in. A control is an empty "qf:form-control" with the attributes
///
///     qf:type            one of the names of Xml::FormControlType, in capitals or not
///     qf:name            what it is called; radio buttons of one name are a group
///     qf:value           the label of a button, the content of a field
///     qf:checked         "true" or "false" for a check box or a radio button
///     qf:control-style   "flat" for the flat look, else absent
///     fo:id              told by a control whose value is dynamic, which the template's data give
///     fo:color, fo:background-color   what a skin gave it
///
/// A host registers "qf:form" as an editable element; "fo:block" as ever. Enter and Backspace are
/// those of the document, which know forms.
///
/// A command is one undo step. Where there is nothing to change it leaves no trace, and a question
/// answers -1, an empty text or false. Positions count 16-bit units.
class FORME_API FormBuffer {
public:
    // Types by name

    /// "checkbox", "text", "button", "radiobutton" or "submit"; "button" for a number that is none.
    static Core::String getControlTypeName(Xml::FormControlType type);
    /// The type of that name, in capitals or not; Button for any other name.
    static Xml::FormControlType getControlType(const Core::String& name);

    // Inserting, in the place of what is selected. Nothing happens where markup cannot be inserted,
    // as in the label of a list item.

    /// Inserts a form that holds an empty block, and puts the caret into that. With `skip` nothing
    /// happens.
    void insertEmptyForm(bool skip);
    /// Inserts a control. With `insideForm` at the caret, which goes behind it; a radio button with
    /// `sameGroup` then takes the name of the radio button before it in the form. Else in a form of
    /// its own, in which the caret stands behind it. Any other control gets a name that is new.
    ///
    /// A `dynamicValue` that is not empty is the expression that gives the control's value; it is
    /// kept in the template's data; where these are not well formed Xml::ParseException is raised
    /// and nothing has happened. Only a control in a form that is there already has one.
    void insertFormControl(Xml::FormControlType type, bool insideForm, bool sameGroup,
                           const Core::String& dynamicValue);

    /// A control as markup; with an empty name it is called after its type and a new id. A button
    /// says "Button" or "Submit". A `dynamicValue` that is not empty is written into the template's
    /// data at once, which is an undo step; where these are not well formed Xml::ParseException is
    /// raised and nothing has happened.
    Core::String getFormControlXml(Xml::FormControlType type, const Core::String& name,
                                   const Core::String& dynamicValue);
    /// The same for a literal, which would else be a flag.
    Core::String getFormControlXml(Xml::FormControlType type, const wchar_t* name,
                                   const Core::String& dynamicValue) {
        return getFormControlXml(type, Core::String(name), dynamicValue);
    }
    /// A control with a new name, with `wrapInForm` in a form of its own. The value is not used.
    Core::String getFormControlXml(Xml::FormControlType type, bool wrapInForm,
                                   const Core::String& value);

    // The controls before the caret in the form around it, or in a form within that; the selection
    // counts from its lower end.

    /// The offset of the nearest one of the type.
    int getPreviousControlPos(Xml::FormControlType type) const;
    /// An attribute, named with its prefix, of the nearest one whose type is of that name, which is
    /// given in lower case.
    Core::String getPreviousControlAttribute(const Core::String& typeName,
                                             const Core::String& attribute) const;

    // All the controls of the form that begins last before the caret, which may stand in the form
    // or anywhere behind it. One whose tag is torn, or has an attribute twice, stays as it is.

    /// Unchecks the radio buttons of that name, which is given as it stands in the text or decoded.
    void uncheckRadioButtonGroup(const Core::String& name);
    /// Gives each control the properties, in the place of what it has under their names. Nothing
    /// happens if one has a prefix that is neither declared nor one of the standard ones.
    void applySkinOnForm(const PropertyCollection& skin);
    /// Takes "fo:color" and "fo:background-color" off each control.
    void removeFormSkin();

    // The selected control

    /// Whether exactly one control is selected.
    bool isFormControlSelected() const;
    /// Gives the selected control the flat look or takes it away again. It stays selected.
    void applyFlatStyle();
    bool hasFlatStyle() const;

    /// A view of a document.
    explicit FormBuffer(Document& document) : document_(document) {}

private:
    Document& document_;
};
