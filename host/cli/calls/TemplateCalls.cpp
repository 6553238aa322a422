// What a template says ahead of its page masters, and the values that are computed from it.

#include "calls/Calls.h"
#include "calls/PageWire.h"
#include "calls/Rows.h"
#include "calls/TreeWire.h"

#include <forme/templates/PropertyValueHandler.h>
#include <forme/templates/QFDTemplateFunctionalBuffer.h>

template <>
const std::vector<RecordField<QFDVariable>>& fieldsOf<QFDVariable>() {
    static const std::vector<RecordField<QFDVariable>> fields{field<&QFDVariable::name>("name"),
                                                              field<&QFDVariable::value>("value")};
    return fields;
}
template <>
struct Wire<QFDVariable> : RecordWire<QFDVariable> {
    static inline const std::string name = describe("variable");
};

template <>
const std::vector<RecordField<QFDTemplateLocale>>& fieldsOf<QFDTemplateLocale>() {
    using L = QFDTemplateLocale;
    static const std::vector<RecordField<L>> fields{field<&L::id>("id"), field<&L::file>("file"),
                                                    field<&L::name>("name")};
    return fields;
}
template <>
struct Wire<QFDTemplateLocale> : RecordWire<QFDTemplateLocale> {
    static inline const std::string name = describe("language");
};

/// What it uses travels in its text.
template <>
const std::vector<RecordField<ManagedScript>>& fieldsOf<ManagedScript>() {
    using S = ManagedScript;
    static const std::vector<RecordField<S>> fields{field<&S::namespacePrefix>("namespacePrefix"),
                                                    field<&S::language>("language"),
                                                    field<&S::text>("text")};
    return fields;
}
template <>
struct Wire<ManagedScript> : RecordWire<ManagedScript> {
    static inline const std::string name = describe("script");
};

namespace {

/// A text of an entry, which is behind operations.
template <auto get, auto set>
RecordField<QFDAttribute> textOfEntry(const char* name) {
    return {name, &Wire<Core::String>::matches,
            [](const Json& value, QFDAttribute& entry) {
                (entry.*set)(Wire<Core::String>::read(value));
            },
            [](const QFDAttribute& entry) { return Wire<Core::String>::write((entry.*get)()); }};
}

} // namespace

template <>
const std::vector<RecordField<QFDAttribute>>& fieldsOf<QFDAttribute>() {
    using A = QFDAttribute;
    static const std::vector<RecordField<A>> fields{
        textOfEntry<&A::getObjectID, &A::setObjectID>("object"),
        textOfEntry<&A::getAttributeName, &A::setAttributeName>("attribute"),
        textOfEntry<&A::getCondition, &A::setCondition>("condition"),
        textOfEntry<&A::getValue, &A::setValue>("value"),
        textOfEntry<&A::getDynamicValue, &A::setDynamicValue>("dynamicValue")};
    return fields;
}
template <>
struct Wire<QFDAttribute> : RecordWire<QFDAttribute> {
    static inline const std::string name = describe("entry");
};

template <>
struct Wire<QFDAttributeCollection> : Wire<Core::Vector<QFDAttribute>> {
    static QFDAttributeCollection read(const Json& value) {
        QFDAttributeCollection entries;
        entries.setAttributes(Wire<Core::Vector<QFDAttribute>>::read(value));
        return entries;
    }
    static Json write(const QFDAttributeCollection& entries) {
        return Wire<Core::Vector<QFDAttribute>>::write(entries.getAttributeList());
    }
};

namespace {

using Core::String;
using D = EditableDocumentBuffer;
using H = PropertyValueHandler;
using T = QFDTemplateFunctionalBuffer;

/// A template's data as an object that can be kept open.
struct OpenedTemplate : Core::Object {
    explicit OpenedTemplate(D& document) : data(&document) {}
    T data;
};

SmartPtr<OpenedTemplate> ofDocument(Session& session) {
    D& document = session.document();
    const bool isThere =
        document.getQFDTemplateDefsPosition() >= 0 && document.getLayoutMasterSetPosition() >= 0;
    return isThere ? SmartPtr<OpenedTemplate>(new OpenedTemplate(document)) : nullptr;
}

OpenedObjects::Tree treeOf(OpenedTemplate& opened) {
    return [&opened] { return opened.data.getQFDDocumentElement(); };
}

PropertyValueEx readValue(D& document, PropertyValueEx value) {
    H::read(SmartPtr<D>(&document), value);
    return value;
}

PropertyValueEx readFrom(D& document, const PropertyCollection& properties, PropertyValueEx value) {
    H::read(SmartPtr<D>(&document), properties, value);
    return value;
}

PropertyValueEx readAtPath(D& document, const String& path, PropertyValueEx value) {
    H::read(SmartPtr<D>(&document), path, value);
    return value;
}

void writeValue(D& document, const PropertyValueEx& value) {
    H::write(value, SmartPtr<D>(&document));
}

} // namespace

std::vector<Operation> Calls::values() {
    const Rows values([](Session& session) -> D& { return session.document(); }, "values");
    return {
        values.made("read", &readValue, {"value"}),
        values.made("read", &readFrom, {"properties", "value"}),
        values.made("read", &readAtPath, {"path", "value"}),
        values.made("write", &writeValue, {"value"}),
    };
}

std::vector<Operation> Calls::templateData() {
    const OpenedRows<OpenedTemplate> opened("template");
    const Rows data(
        [](Session& session) -> T& {
            return static_cast<OpenedTemplate*>(session.opened().at("template"))->data;
        },
        "template");
    return {
        opened.openMade(&ofDocument, &treeOf),
        opened.close(),
        data("commitChangesToDocumentBuffer", &T::commitChangesToDocumentBuffer),
        data("commit", &T::commitChangesToDocumentBuffer),
        data("getQFDDocumentElement", &T::getQFDDocumentElement),

        data("getScripts", &T::getScripts),
        data("overrideScripts", &T::overrideScripts, {"scripts"}),
        data("getScriptByNamespacePrefix", &T::getScriptByNamespacePrefix, {"prefix"}),
        data("getVariables", &T::getVariables),
        data("overrideVariables", &T::overrideVariables, {"variables"}),

        // Values that are computed
        data("getQFDAttributes", &T::getQFDAttributes),
        data("setQFDAttributes", &T::setQFDAttributes, {"entries"}),
        data("overrideQFDAttributesId", &T::overrideQFDAttributesId, {"oldId", "newId"}),
        data("getQFDAttributeFromXmlNode", &T::getQFDAttributeFromXmlNode, {"node"}),
        data("addXmlNodeFromQFDAttributeToRootNode", &T::addXmlNodeFromQFDAttributeToRootNode,
             {"entry", "root"}),

        // Languages
        data("getQFDLocales", &T::getQFDLocales),
        data("getDefaultQFDLocale", &T::getDefaultQFDLocale),
        data("insertOrEditQFDLocale", &T::insertOrEditQFDLocale, {"id", "file", "name"}),
        data("deleteQFDLocale", &T::deleteQFDLocale, {"id"}),

        // The style sheet
        data("getGlobalXslt", &T::getGlobalXslt),
        data("getXsltInGlobalXslt", &T::getXsltInGlobalXslt),
        data("getGlobalXsltText", &T::getGlobalXsltText),
        data("overrideGlobalXsltText", &T::overrideGlobalXsltText, {"text"}),

        data("getNamespaces", &T::getNamespaces),
        data("getNamespacesAsString", &T::getNamespacesAsString),
    };
}
