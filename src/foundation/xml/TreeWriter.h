#pragma once

#include "foundation/String.h"

#include <string>
#include <string_view>

namespace Xml {

class Attribute;
class ContentNode;
class Element;
class Node;
class XmlDocument;

/// Writes a tree as text, node by node in document order and without recursion.
class TreeWriter {
public:
    Core::String write(const XmlDocument& document);

private:
    static bool beginsWithLineBreak(const Node* node);
    void writeNewDocumentType(const XmlDocument& document);
    void writeDocumentType(const XmlDocument& document, std::wstring_view declaration);
    void writeRoot(const Element& root);
    void writeStartTag(const Element& element);
    void writeEndTag(const Node& element);
    void writeContent(const Node& node);
    void writeCData(std::wstring_view content);
    void writeName(const Node& node);
    void writeText(std::wstring_view text);
    void writeValue(std::wstring_view value);

    std::wstring out_;
};

} // namespace Xml
