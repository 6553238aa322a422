#include "text/EditableXmlBuffer.h"

#include "text/XmlScan.h"

#include <algorithm>

using Core::String;
using XmlScan::Text;

bool EditableXmlBuffer::namespaceIsDefined(const String& declaration,
                                           const std::set<String>& declared) const {
    const String wanted = declaration.substringBefore(L"=").toLower();
    return std::any_of(declared.begin(), declared.end(), [&](const String& entry) {
        return entry.substringBefore(L"=").toLower() == wanted;
    });
}

String EditableXmlBuffer::namespaceSetToString(const std::set<String>& declared) const {
    String declarations;
    for (const String& entry : declared)
        declarations += L" " + entry;
    return declarations;
}

std::set<String> EditableXmlBuffer::getNamespacesFromElementAt(int element) const {
    const Text text = text_.view();
    std::set<String> declared;
    if (!XmlScan::onTagStart(text, element))
        return declared;
    for (int at = XmlScan::nextAttribute(text, element + 1); at >= 0;
         at = XmlScan::nextAttribute(text, at)) {
        const Text name = XmlScan::attributeName(text, at);
        if (name.starts_with(L"xmlns:"))
            declared.insert(String(name) + L"=\"" + getValueForAttributeAt(at) + L"\"");
    }
    return declared;
}

std::set<String> EditableXmlBuffer::getNamespacesFromAllContainers(int position) const {
    std::set<String> declared;
    for (int element = getCurrentElementPosition(position); element >= 0;
         element = getCurrentElementPosition(element)) {
        for (const String& declaration : getNamespacesFromElementAt(element))
            if (!namespaceIsDefined(declaration, declared))
                declared.insert(declaration);
    }
    return declared;
}
