#include "foundation/xml/TreeWriter.h"

#include "foundation/xml/QualifiedName.h"
#include "foundation/xml/XmlDocument.h"

#include <algorithm>

namespace Xml {

namespace {

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
    bool lacksDocumentType = !document.entityDeclarations_.empty();
    for (const Node* node = document.content_.firstChild_; node; node = node->next_) {
        if (node->kind_ == Node::Kind::DocumentType) {
            writeDocumentType(document, contentOf(*node));
            lacksDocumentType = false;
        } else if (!node->is_element()) {
            writeContent(*node);
        } else {
            if (lacksDocumentType)
                writeNewDocumentType(document);
            writeRoot(*document.root_);
        }
    }
    return Core::String(std::move(out_));
}

void TreeWriter::writeNewDocumentType(const XmlDocument& document) {
    out_ += L"<!DOCTYPE ";
    writeName(*document.root_);
    writeDocumentType(document, L">");
    out_ += L'\n';
}

bool TreeWriter::beginsWithLineBreak(const Node* node) {
    return node && node->kind_ == Node::Kind::Text && contentOf(*node).starts_with(L'\n');
}

// New declarations stand at the head of the internal subset, because the first one of a name binds.
void TreeWriter::writeDocumentType(const XmlDocument& document, std::wstring_view declaration) {
    if (document.entityDeclarations_.empty()) {
        out_ += declaration;
        return;
    }
    std::size_t subset = internalSubset(declaration);
    bool hasSubset = subset != std::wstring_view::npos;
    out_ += declaration.substr(0, hasSubset ? subset : declaration.size() - 1);
    if (!hasSubset)
        out_ += L" [";
    for (const auto& entry : document.entityDeclarations_)
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
        if (node == &root && root.firstChild_ && !beginsWithLineBreak(root.firstChild_))
            out_ += L'\n';
        if (node->firstChild_) {
            node = node->firstChild_;
            continue;
        }
        while (node != &root && !node->next_) {
            node = node->parent_;
            writeEndTag(*node);
        }
        if (node == &root)
            break;
        node = node->next_;
    }
    if (!beginsWithLineBreak(root.next_))
        out_ += L'\n';
}

void TreeWriter::writeStartTag(const Element& element) {
    out_ += L'<';
    writeName(element);
    for (const auto& attribute : element.attributes_) {
        out_ += L' ';
        writeName(*attribute);
        out_ += L"=\"";
        writeValue(attribute->get_value().view());
        out_ += L'"';
    }
    out_ += element.firstChild_ ? L">" : L"/>";
}

void TreeWriter::writeEndTag(const Node& element) {
    out_ += L"</";
    writeName(element);
    out_ += L'>';
}

void TreeWriter::writeContent(const Node& node) {
    std::wstring_view content = contentOf(node);
    switch (node.kind_) {
    case Node::Kind::Text:
        return writeText(content);
    case Node::Kind::CData:
        return writeCData(content);
    case Node::Kind::Comment:
        out_.append(L"<!--").append(content).append(L"-->");
        return;
    case Node::Kind::ProcessingInstruction:
        out_ += L"<?";
        writeName(node);
        out_.append(content).append(L"?>");
        return;
    case Node::Kind::EntityReference:
        out_ += L'&';
        writeName(node);
        out_ += L';';
        return;
    case Node::Kind::Document:
    case Node::Kind::DocumentType:
    case Node::Kind::Element:
    case Node::Kind::Attribute:
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
    if (!node.name_->prefix.empty())
        out_.append(node.name_->prefix.view()).append(L":");
    out_ += node.name_->local.view();
}

void TreeWriter::writeText(std::wstring_view text) {
    appendEscaped(out_, text, referenceInText);
}

void TreeWriter::writeValue(std::wstring_view value) {
    appendEscaped(out_, value, referenceInValue);
}

} // namespace Xml
