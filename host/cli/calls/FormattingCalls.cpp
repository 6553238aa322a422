// Properties and styles.

#include "calls/Calls.h"
#include "calls/Rows.h"

using Core::String;
using D = EditableDocumentBuffer;

namespace {

Core::Vector<String> getCrtElementClassName(D& document, const String& elementName) {
    String name = elementName;
    String className;
    document.getCrtElementClassName(className, name);
    return {className, name};
}

Core::Vector<String> getParentProperty(D& document, const String& elementName,
                                       const String& property) {
    String value;
    return document.getParentProperty(elementName, property, value) ? Core::Vector<String>{value}
                                                                    : Core::Vector<String>();
}

} // namespace

std::vector<Operation> Calls::formatting() {
    const auto document = documentRows();
    return {
        document("getProperties",
                 overload<PropertyCollection(const String&) const>(&D::getProperties), {"path"}),
        document("getProperties",
                 overload<PropertyCollection(const String&, int) const>(&D::getProperties),
                 {"elementName", "position"}),
        document("getPropertiesList", &D::getPropertiesList, {"elementName"}),
        document("setProperties",
                 overload<void(const PropertyCollection&, const String&)>(&D::setProperties),
                 {"properties", "path"}),
        document("setProperties",
                 overload<void(const PropertyCollection&, const String&, int)>(&D::setProperties),
                 {"properties", "elementName", "position"}),
        document("setProperty", &D::setProperty, {"property", "path"}),
        document("removeProperties", &D::removeProperties, {"path"}),
        document("applyStyleOnElement", &D::applyStyleOnElement, {"className", "elementName"}),
        document.made("getCrtElementClassName", &getCrtElementClassName, {"elementName"}),
        document("getInheritablePropertyValueAtPosition", &D::getInheritablePropertyValueAtPosition,
                 {"name", "position"}),
        document.made("getParentProperty", &getParentProperty, {"elementName", "property"}),
        document("setParentProperty", &D::setParentProperty, {"elementName", "property", "value"}),
    };
}
