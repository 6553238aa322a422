#pragma once

#include "foundation/Wide.h"
#include "text/XmlText.h"

#include <string>

/// A text whose root element has that name.
inline XmlText xmlText(const Core::String& content, const wchar_t* root = L"r") {
    XmlText text;
    text.assign(content);
    text.setRootName(root);
    return text;
}

/// Where `what` first stands.
inline int at(const XmlText& text, const wchar_t* what) {
    return text.find(what, 0);
}
/// The offset behind it.
inline int behind(const XmlText& text, const wchar_t* what) {
    return at(text, what) + Core::String(what).length();
}

/// A text with a position that is asked about, written `|`, and the answer, written `^`; -1 where
/// the mark is missing.
struct MarkedText {
    explicit MarkedText(const wchar_t* marked, const wchar_t* root = L"r") {
        std::wstring plain;
        for (; *marked; ++marked)
            if (*marked == L'|' || *marked == L'^')
                (*marked == L'|' ? asked : answer) = static_cast<int>(plain.size());
            else
                plain += *marked;
        text = xmlText(Core::String(plain), root);
    }

    XmlText text;
    int asked = -1;
    int answer = -1;
};
