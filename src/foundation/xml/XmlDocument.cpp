#include "foundation/xml/XmlDocument.h"

#include "foundation/Exception.h"
#include "foundation/xml/QualifiedName.h"
#include "foundation/xml/TreeParts.h"
#include "foundation/xml/TreeWriter.h"

namespace Xml {

namespace {

Core::String quoted(const Core::String& text) {
    requireXmlText(text);
    bool hasDouble = text.find(L'"', 0) >= 0;
    if (hasDouble && text.find(L'\'', 0) >= 0)
        throw Core::Exception(L"an identifier cannot hold both kinds of quotes: " + text);
    wchar_t quote = hasDouble ? L'\'' : L'"';
    return Core::String(quote, 1) + text + Core::String(quote, 1);
}

Core::String entityValue(Core::String content) {
    requireXmlText(content);
    content.replaceAll(L"%", L"&#37;");
    content.replaceAll(L"\"", L"&#34;");
    return L"\"" + content + L"\"";
}

Core::String externalId(const Core::String& publicId, const Core::String& systemId) {
    if (systemId.empty())
        throw Core::Exception(L"an external entity needs a system identifier");
    if (publicId.empty())
        return L"SYSTEM " + quoted(systemId);
    return L"PUBLIC " + quoted(publicId) + L" " + quoted(systemId);
}

} // namespace

XmlDocument::XmlDocument(const Core::String& version) : version_(version) {}

XmlDocument::~XmlDocument() = default;

Element* XmlDocument::createRootNode(const Core::String& name, const Core::String& uri,
                                     const Core::String& prefix) {
    std::unique_ptr<Element> root = Element::Parts::make(name, prefix);
    Core::String own = root->getNSPrefix();
    if (!uri.empty())
        root->set_attribute(own.empty() ? Core::String(L"xmlns") : L"xmlns:" + own, uri);
    return replaceRoot(std::move(root));
}

Element* XmlDocument::createRootNodeByImport(const Node* source, bool recursive) {
    if (!source || !source->is_element())
        throw Core::Exception(L"only an element can be imported as the root");
    return replaceRoot(Node::Parts::copyOf(source, recursive));
}

Element* XmlDocument::replaceRoot(std::unique_ptr<Node> root) {
    Node* old = root_;
    root_ = static_cast<Element*>(Node::Parts::insertBefore(content_, old, std::move(root)));
    if (old)
        Node::Parts::takeOut(content_, old);
    return root_;
}

Core::String XmlDocument::writeToString(const Core::String&) const {
    return TreeWriter().write(*this);
}

void XmlDocument::setEntityDeclaration(const Core::String& name, XmlEntityType type,
                                       const Core::String& publicId, const Core::String& systemId,
                                       const Core::String& content) {
    QualifiedName::checked(name, Core::String());
    bool parameter =
        type == XmlEntityType::InternalParameter || type == XmlEntityType::ExternalParameter;
    bool internal = type == XmlEntityType::Internal || type == XmlEntityType::InternalParameter;
    Core::String key = parameter ? L"% " + name : name;
    Core::String value = internal ? entityValue(content) : externalId(publicId, systemId);
    if (type == XmlEntityType::Unparsed) {
        QualifiedName::checked(content, Core::String());
        value += L" NDATA " + content;
    }
    entityDeclarations_[key] = L"<!ENTITY " + key + L" " + value + L">";
}

Core::String XmlDocument::getXmlDeclaration(const Core::String& encoding) {
    Core::String name = encoding.empty() ? Core::String() : L" encoding=\"" + encoding + L"\"";
    return L"<?xml version=\"1.0\"" + name + L"?>\n";
}

} // namespace Xml
