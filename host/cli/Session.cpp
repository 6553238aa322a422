#include "Session.h"

#include "CallTable.h"
#include "Components.h"
#include "MemoryReserve.h"
#include "Spelling.h"

#include <forme/document/EditableDocumentBufferState.h>

#include <exception>
#include <optional>
#include <string>
#include <utility>

namespace {

bool hasFoRoot(const Core::String& content) {
    const int root = content.find(L"<fo:root", 0);
    const int document = content.find(L"<qfd:document", 0);
    return root >= 0 && (document < 0 || root < document);
}

/// A document's XML declaration, if it has one. The scans are there for derived classes.
class Declaration : public EditableDocumentBuffer {
public:
    explicit Declaration(const Core::String& document) {
        setContent(document.substringBefore(L"?>") + L"?>", true);
    }

    bool namesOtherEncodingThan(const wchar_t* encoding) const {
        int attribute = -1;
        return getNameForTagAtPosition(0, true) == L"?xml" &&
               containsAttribute(1, L"encoding", attribute) &&
               getValueForAttributeAt(attribute).compareNoCase(encoding) != 0;
    }
};

SmartPtr<EditableDocumentBuffer> makeDocument() {
    SmartPtr<EditableDocumentBuffer> document(new EditableDocumentBuffer);
    setUpAsHost(*document);
    document->setSpellChecker(systemSpellChecker());
    document->setHtmlParser(builtInHtmlParser());
    document->setTextSegmenter(builtInTextSegmenter());
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

void Session::adopt(const SmartPtr<EditableDocumentBuffer>& document) noexcept {
    if (document_)
        document_->setMonitor(nullptr);
    document_ = document;
    document_->setMonitor(this);
}

void Session::open(const Core::String& path) {
    const SmartPtr<EditableDocumentBuffer> opened = makeDocument();
    loadDocument(*opened, path);
    adopt(opened);
    opened_ = {};
    notices_ = {.buffer = true, .caret = true};
}

void Session::save(const Core::String& path, DocumentEncoding encoding) {
    const wchar_t* name = encoding == DocumentEncoding::Utf16WithMark ? L"UTF-16" : L"UTF-8";
    const Core::String content = document_->getContent();
    const SmartPtr<Declaration> declaration(new Declaration(content));
    if (!declaration->namesOtherEncodingThan(name))
        return document_->saveToFile(path, encoding);
    const SmartPtr<EditableDocumentBuffer> renamed(new EditableDocumentBuffer);
    renamed->setContent(content, true);
    renamed->changeXmlEncoding(name);
    renamed->saveToFile(path, encoding);
}

/// What happened is taken back when it cannot be told, so that after an error nothing has changed.
template <typename Answer>
auto Session::undivided(Answer answer) {
    const SmartPtr<EditableDocumentBuffer> document = document_;
    document->getTextVersion(); // to which, with no other in between, is gone back without a trace
    EditableDocumentBufferState before(document.get());
    OpenedObjects opened = opened_;
    try {
        return answer();
    } catch (...) {
        before.restorePreviousState();
        adopt(document);
        opened_ = std::move(opened);
        throw;
    }
}

/// What a request did to the text. Where it took up another document, that is all of the text.
TextChange Session::changeSince(const SmartPtr<EditableDocumentBuffer>& before,
                                std::uint64_t version) const {
    if (document_ == before)
        if (const std::optional<TextChange> change = before->changeSince(version))
            return *change;
    return {0, before->getContent().length(), document_->getContent().length()};
}

Json Session::carryOut(const Json& request) {
    notices_ = {};
    const SmartPtr<EditableDocumentBuffer> before = document_;
    const std::uint64_t version = before->getTextVersion();
    const Json result = operationFor(request).invoke(*this, request);
    opened_.forgetLostNodes();
    Json notices = Json::array();
    for (const auto& [given, name] : {std::pair(notices_.buffer, "buffer"),
                                      {notices_.caret, "caret"},
                                      {notices_.selection, "selection"}})
        if (given)
            notices.push_back(name);
    Json reply = {{"result", result},
                  {"caret", document_->getCaretPos()},
                  {"pivot", document_->getSelectionPivotPos()},
                  {"notices", notices}};
    if (const TextChange change = changeSince(before, version); !change.empty())
        reply["change"] = Wire<TextChange>::write(change);
    return reply;
}

Json Session::serve(const Json& request) {
    try {
        return undivided([&] { return carryOut(request); });
    } catch (const std::exception& failure) {
        return {{"error", failure.what()}};
    }
}

Json Session::serveLine(std::string_view line) {
    try {
        return serve(Json::parse(line));
    } catch (const Json::parse_error& failure) {
        return {{"error", "no JSON: column " + std::to_string(failure.byte)}};
    } catch (const Json::out_of_range&) {
        return {{"error", "a number is too large"}};
    }
}

std::string Session::replyTo(std::string_view line) {
    const MemoryReserve reserve;
    return undivided([&] {
        // What is no UTF-8 can only come from the system, as in the reason of an error.
        std::string answer = serveLine(line).dump(-1, ' ', false, Json::error_handler_t::replace);
        reserve.requireUntouched();
        return answer;
    });
}
