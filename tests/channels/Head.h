#pragma once

#include "support/PartDocument.h"

#include <string>

/// A document with something in front of its page masters, from the attributes of its root on, and
/// the caret in its block.
struct Head : PartDocument {
    explicit Head(const std::wstring& head)
        : PartDocument(L"<qfd:document xmlns:qfd='urn:forme:qfd/1.0'", head,
                       L"<fo:layout-master-set/><fo:page-sequence><fo:flow><fo:block>text"
                       L"</fo:block></fo:flow></fo:page-sequence></qfd:document>") {
        face().setCaretPos(false, find(L"text"));
        heard();
    }

    void insertUnheard(const wchar_t* xml) { face().insertXmlTextAtPosition(find(L">") + 1, xml); }
};

inline const std::wstring fo = L" xmlns:fo='http://www.w3.org/1999/XSL/Format'";
inline const std::wstring qf = L" xmlns:qf='urn:forme:qf/1.0'";
