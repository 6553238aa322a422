#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/Vector.h"
#include "foundation/values/ManagedScript.h"
#include "foundation/values/QFDAttributeCollection.h"
#include "foundation/values/QFDTemplateLocale.h"
#include "foundation/values/QFDVariable.h"
#include "foundation/xml/Element.h"

#include <map>
#include <memory>

class EditableDocumentBuffer;
class TemplateData;

/// What a template says ahead of its page masters: scripts, variables, values that are computed,
/// languages, and a style sheet that is added to the one it is produced by. A host reads a list,
/// edits it in its dialog, gives the whole list back and commits:
///
///     QFDTemplateFunctionalBuffer data(document);
///     Core::Vector<QFDVariable> variables = data.getVariables();
///     variables.push_back({L"today", L"current-date()"});
///     data.overrideVariables(variables);
///     data.commitChangesToDocumentBuffer();
///
/// What takes the place of a list stands behind whatever else there is. Texts are plain, but the
/// style sheet's, which is markup. A text with a character that XML has no way to write raises a
/// Core::Exception, and the tree stays as it was. Elements are given as plain pointers, valid until
/// they are removed. Children of the root that are in another namespace than the template's are
/// none of its data.
///
/// Only a document whose root is "qfd:document" and which has page masters has such data. On any
/// other the object has no tree, and every operation raises Core::NullPointerException.
class FORME_API QFDTemplateFunctionalBuffer {
public:
    // Reading and writing back

    /// Reads the document, which must not be null and must outlive this. Raises an
    /// Xml::ParseException, with line and column in the document, where the data are not well
    /// formed.
    explicit QFDTemplateFunctionalBuffer(EditableDocumentBuffer* document);
    ~QFDTemplateFunctionalBuffer();
    QFDTemplateFunctionalBuffer(const QFDTemplateFunctionalBuffer&) = delete;
    QFDTemplateFunctionalBuffer& operator=(const QFDTemplateFunctionalBuffer&) = delete;

    /// Writes the data back as one undo step and declares on the root what prefixes they need.
    /// Carriage returns go, and so does white space before the page masters; what was not edited
    /// is spelt as before. Without a change nothing happens. Raises a Core::Exception, and changes
    /// nothing, where the data in the document are no longer those that were read. Where the
    /// document may not be edited, or no parser would take it with the data, nothing happens and
    /// nothing is told. Afterwards this can be edited on and committed again; if carriage returns
    /// went, its elements are new ones.
    void commitChangesToDocumentBuffer();

    /// The root, which holds the data and nothing of what follows.
    Xml::Element* getQFDDocumentElement() const;

    // Scripts

    /// What a script uses stands as markup in its text, and the texts of entities in the place of
    /// references to them; a reference to one outside the document stays as it is spelt.
    Core::Vector<ManagedScript> getScripts() const;
    /// Of a script in "CSharp" that markup becomes elements ahead of its text; an assembly's name
    /// wins over its address. In other languages it is text like any other.
    void overrideScripts(const Core::Vector<ManagedScript>& scripts);
    /// The first script of that prefix; null without one.
    Xml::Element* getScriptByNamespacePrefix(const Core::String& prefix) const;

    // Variables

    Core::Vector<QFDVariable> getVariables() const;
    void overrideVariables(const Core::Vector<QFDVariable>& variables);

    // Values that are computed; PropertyValueHandler reads and writes those of one attribute

    QFDAttributeCollection getQFDAttributes() const;
    /// Entries without an object id are left out. An element whose entry stays keeps what else it
    /// holds.
    void setQFDAttributes(const QFDAttributeCollection& entries);
    /// Gives the entries of an object another id; answers whether there are any.
    bool overrideQFDAttributesId(const Core::String& oldId, const Core::String& newId);
    /// The entry that an element is; an empty one for another node or null.
    QFDAttribute getQFDAttributeFromXmlNode(const Xml::Node* node) const;
    /// Appends an entry to an element; nothing without an object id, or for another node or null.
    void addXmlNodeFromQFDAttributeToRootNode(const QFDAttribute& entry, Xml::Node* root);

    // Languages

    /// Those with an id. An empty name, but not a missing one, is the id.
    Core::Vector<QFDTemplateLocale> getQFDLocales() const;
    /// The first without a file of its own; an empty one where there is none.
    QFDTemplateLocale getDefaultQFDLocale() const;
    /// Names the language of that id, or a new one, and gives it the file; an empty file leaves the
    /// one there was. Nothing for an empty id.
    void insertOrEditQFDLocale(const Core::String& id, const Core::String& file,
                               const Core::String& name);
    void deleteQFDLocale(const Core::String& id);

    // The style sheet

    /// The element around it; null without one.
    Xml::Element* getGlobalXslt() const;
    /// The style sheet itself; null without one.
    Xml::Element* getXsltInGlobalXslt() const;
    /// Its content as markup; empty without one.
    Core::String getGlobalXsltText() const;
    /// Takes markup for its content; a blank text removes it. The markup may use the prefixes
    /// of the old one and of the root, and the document's entities. Where it is not well formed
    /// raises an Xml::ParseException, where it uses a prefix that nothing declares a
    /// Core::Exception; the old one is then gone from the tree, with an empty element in its place.
    void overrideGlobalXsltText(const Core::String& text);

    // Namespaces that the root declares

    /// From prefix to address; the default one has the empty prefix.
    std::map<Core::String, Core::String> getNamespaces() const;
    /// As attributes, a blank before each.
    Core::String getNamespacesAsString() const;

private:
    std::unique_ptr<TemplateData> data_;
};
