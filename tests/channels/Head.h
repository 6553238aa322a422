#pragma once

#include "support/MarkedDocument.h"

#include <string>

/// A document with something in front of its page masters, from the attributes of its root on, and
/// the caret in its block.
class Head {
public:
    explicit Head(const std::wstring& head) {
        document_->setContent(Core::String(start + head + rest), true);
        document_->setCaretPos(false, document_.find(L"text"));
        document_.heard();
    }

    MarkedDocument* operator->() { return &document_; }
    EditableDocumentBuffer* face() const { return &document_.face(); }
    std::wstring text() const {
        const std::wstring text = document_.content();
        return text.substr(start.size(), text.size() - start.size() - rest.size());
    }
    bool canUndo() const { return document_->canUndo(); }
    void insertUnheard(const wchar_t* xml) {
        document_->insertXmlTextAtPosition(document_.find(L">") + 1, xml);
    }

private:
    const std::wstring start = L"<qfd:document xmlns:qfd='urn:forme:qfd/1.0'";
    const std::wstring rest = L"<fo:layout-master-set/><fo:page-sequence><fo:flow><fo:block>text"
                              L"</fo:block></fo:flow></fo:page-sequence></qfd:document>";
    MarkedDocument document_;
};

inline const std::wstring fo = L" xmlns:fo='http://www.w3.org/1999/XSL/Format'";
inline const std::wstring qf = L" xmlns:qf='urn:forme:qf/1.0'";
