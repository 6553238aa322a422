#include "Session.h"

#include "CallTable.h"
#include "Spelling.h"

#include <forme/foundation/Encoder.h>
#include <forme/foundation/Exception.h>

#include <exception>
#include <regex>
#include <string>

namespace {

bool hasFoRoot(const Core::String& content) {
    const int root = content.find(L"<fo:root", 0);
    const int document = content.find(L"<qfd:document", 0);
    return root >= 0 && (document < 0 || root < document);
}

/// Whether the text has an XML declaration that names another encoding.
bool namesOtherEncoding(const Core::String& content, const std::string& encoding) {
    const int end = content.find(L"?>", 0);
    if (!content.startsWith(L"<?xml") || end < 0)
        return false;
    const std::string declaration = Core::Encoder::toDisplayText(content.subString(0, end));
    static const std::regex named("\\sencoding\\s*=\\s*[\"']([^\"']*)[\"']");
    const std::regex wanted(encoding, std::regex::icase);
    std::smatch name;
    return std::regex_search(declaration, name, named) && !std::regex_match(name[1].str(), wanted);
}

SmartPtr<EditableDocumentBuffer> makeDocument() {
    SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUpAsHost(*document);
    document->setSpellChecker(systemSpellChecker());
    return document;
}

} // namespace

void setUpAsHost(EditableDocumentBuffer& document) {
    document.setRootElement(L"qfd:document");
    for (const wchar_t* name : {L"fo:block", L"fo:inline", L"fo:wrapper", L"fo:basic-link",
                                L"fo:bidi-override", L"qf:form"})
        document.addEditableElement(name);
    for (const wchar_t* name : {L"fo:inline", L"fo:wrapper", L"fo:basic-link", L"fo:bidi-override"})
        document.addInlineEditableElement(name);
}

void loadDocument(EditableDocumentBuffer& document, const Core::String& path) {
    document.setContentFromFile(path);
    if (hasFoRoot(document.getContent())) {
        document.setRootElement(L"fo:root");
        document.moveCaretHome(false);
    }
}

Session::Session() {
    adopt(makeDocument());
}

Session::~Session() {
    document_->setMonitor(nullptr);
}

void Session::adopt(const SmartPtr<EditableDocumentBuffer>& document) {
    if (document_)
        document_->setMonitor(nullptr);
    document_ = document;
    document_->setMonitor(this);
}

void Session::open(const Core::String& path) {
    const SmartPtr<EditableDocumentBuffer> opened = makeDocument();
    loadDocument(*opened, path);
    adopt(opened);
    notices_ = {"buffer", "caret"};
}

void Session::save(const Core::String& path, DocumentEncoding encoding) {
    const Core::String content = document_->getContent();
    const char* name = encoding == DocumentEncoding::Utf16WithMark ? "UTF-16" : "UTF-8";
    if (!namesOtherEncoding(content, name))
        return document_->saveToFile(path, encoding);
    const SmartPtr<EditableDocumentBuffer> renamed(new EditableDocumentBuffer);
    renamed->setContent(content, true);
    renamed->changeXmlEncoding(name);
    renamed->saveToFile(path, encoding);
}

Json Session::serve(const Json& request) {
    notices_.clear();
    try {
        const Json result = operationFor(request).invoke(*this, request);
        return {{"result", result},
                {"caret", document_->getCaretPos()},
                {"pivot", document_->getSelectionPivotPos()},
                {"notices", notices_}};
    } catch (const std::exception& failure) {
        return {{"error", failure.what()}};
    }
}

Json Session::serveLine(std::string_view line) {
    try {
        return serve(Json::parse(line));
    } catch (const Json::parse_error& failure) {
        return {{"error", "no JSON: column " + std::to_string(failure.byte)}};
    }
}
