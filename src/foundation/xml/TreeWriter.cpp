#include "foundation/xml/TreeWriter.h"

#include "foundation/xml/QualifiedName.h"
#include "foundation/xml/TreeParts.h"
#include "foundation/xml/XmlDocument.h"

#include <algorithm>

namespace Xml {

namespace {

using Parts = Node::Parts;

std::wstring_view contentOf(const Node& node) {
    // The view lives as long as the node: its String shares the storage that get_content() answers.
    return static_cast<const ContentNode&>(node).get_content().view();
}

/// The offset behind the "[" of the internal subset; npos when there is none.
std::size_t internalSubset(std::wstring_view declaration) {
    wchar_t quote = 0;
    for (std::size_t i = 0; i < declaration.size(); ++i) {
        wchar_t ch = declaration[i];
        if (quote)
            quote = ch == quote ? 0 : quote;
        else if (ch == L'"' || ch == L'\'')
            quote = ch;
        else if (ch == L'[')
            return i + 1;
    }
    return std::wstring_view::npos;
}

const wchar_t* referenceInText(wchar_t ch) {
    switch (ch) {
    case L'&':
        return L"&amp;";
    case L'<':
        return L"&lt;";
    case L'>':
        return L"&gt;";
    case L'\r':
        return L"&#13;";
    case 0xA0:
        return L"&#x00A0;";
    default:
        return nullptr;
    }
}

const wchar_t* referenceInValue(wchar_t ch) {
    switch (ch) {
    case L'"':
        return L"&quot;";
    case L'\t':
        return L"&#9;";
    case L'\n':
        return L"&#10;";
    case 0xA0:
        return nullptr;
    default:
        return referenceInText(ch);
    }
}

template <typename Reference>
void appendEscaped(std::wstring& out, std::wstring_view text, Reference reference) {
    std::size_t written = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (const wchar_t* escape = reference(text[i])) {
            out.append(text, written, i - written).append(escape);
            written = i + 1;
        }
    }
    out.append(text, written);
}

} // namespace

Core::String TreeWriter::write(const XmlDocument& document) {
    bool lacksDocumentType = !XmlDocument::Parts::entityDeclarations(document).empty();
    for (const Node* node = Parts::firstChild(XmlDocument::Parts::content(document)); node;
         node = Parts::next(*node)) {
        if (Parts::kind(*node) == Parts::Kind::DocumentType) {
            writeDocumentType(document, contentOf(*node));
            lacksDocumentType = false;
        } else if (!node->is_element()) {
            writeContent(*node);
        } else {
            if (lacksDocumentType)
                writeNewDocumentType(document);
            writeRoot(*document.getRootNode());
        }
    }
    return Core::String(std::move(out_));
}

void TreeWriter::writeNewDocumentType(const XmlDocument& document) {
    out_ += L"<!DOCTYPE ";
    writeName(*document.getRootNode());
    writeDocumentType(document, L">");
    out_ += L'\n';
}

bool TreeWriter::beginsWithLineBreak(const Node* node) {
    return node && Parts::kind(*node) == Parts::Kind::Text && contentOf(*node).starts_with(L'\n');
}

// New declarations stand at the head of the internal subset, because the first one of a name binds.
void TreeWriter::writeDocumentType(const XmlDocument& document, std::wstring_view declaration) {
    if (XmlDocument::Parts::entityDeclarations(document).empty()) {
        out_ += declaration;
        return;
    }
    std::size_t subset = internalSubset(declaration);
    bool hasSubset = subset != std::wstring_view::npos;
    out_ += declaration.substr(0, hasSubset ? subset : declaration.size() - 1);
    if (!hasSubset)
        out_ += L" [";
    for (const auto& entry : XmlDocument::Parts::entityDeclarations(document))
        out_.append(L"\n").append(entry.second.view());
    out_ += hasSubset ? declaration.substr(subset) : L"\n]>";
}

void TreeWriter::writeRoot(const Element& root) {
    const Node* node = &root;
    while (true) {
        if (node->is_element())
            writeStartTag(static_cast<const Element&>(*node));
        else
            writeContent(*node);
        if (node == &root && Parts::firstChild(root) &&
            !beginsWithLineBreak(Parts::firstChild(root)))
            out_ += L'\n';
        if (const Node* child = Parts::firstChild(*node)) {
            node = child;
            continue;
        }
        while (node != &root && !Parts::next(*node)) {
            node = Parts::parent(*node);
            writeEndTag(*node);
        }
        if (node == &root)
            break;
        node = Parts::next(*node);
    }
    if (!beginsWithLineBreak(Parts::next(root)))
        out_ += L'\n';
}

void TreeWriter::writeStartTag(const Element& element) {
    out_ += L'<';
    writeName(element);
    for (const auto& attribute : Element::Parts::attributes(element)) {
        out_ += L' ';
        writeName(*attribute);
        out_ += L"=\"";
        writeValue(attribute->get_value().view());
        out_ += L'"';
    }
    out_ += Parts::firstChild(element) ? L">" : L"/>";
}

void TreeWriter::writeEndTag(const Node& element) {
    out_ += L"</";
    writeName(element);
    out_ += L'>';
}

void TreeWriter::writeContent(const Node& node) {
    std::wstring_view content = contentOf(node);
    switch (Parts::kind(node)) {
    case Parts::Kind::Text:
        return writeText(content);
    case Parts::Kind::CData:
        return writeCData(content);
    case Parts::Kind::Comment:
        out_.append(L"<!--").append(content).append(L"-->");
        return;
    case Parts::Kind::ProcessingInstruction:
        out_ += L"<?";
        writeName(node);
        out_.append(content).append(L"?>");
        return;
    case Parts::Kind::EntityReference:
        out_ += L'&';
        writeName(node);
        out_ += L';';
        return;
    case Parts::Kind::Document:
    case Parts::Kind::DocumentType:
    case Parts::Kind::Element:
    case Parts::Kind::Attribute:
        break;
    }
}

// A section cannot hold its own end, so one that does is written as two.
void TreeWriter::writeCData(std::wstring_view content) {
    out_ += L"<![CDATA[";
    for (std::size_t end; (end = content.find(L"]]>")) != std::wstring_view::npos;) {
        out_.append(content.substr(0, end + 2)).append(L"]]><![CDATA[");
        content.remove_prefix(end + 2);
    }
    out_.append(content).append(L"]]>");
}

void TreeWriter::writeName(const Node& node) {
    const QualifiedName& name = *Parts::name(node);
    if (!name.prefix.empty())
        out_.append(name.prefix.view()).append(L":");
    out_ += name.local.view();
}

void TreeWriter::writeText(std::wstring_view text) {
    appendEscaped(out_, text, referenceInText);
}

void TreeWriter::writeValue(std::wstring_view value) {
    appendEscaped(out_, value, referenceInValue);
}

} // namespace Xml
