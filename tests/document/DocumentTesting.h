#pragma once

#include "Session.h"
#include "document/EditableDocumentBuffer.h"
#include "foundation/Wide.h"
#include "support/ShortMarkup.h"

#include <algorithm>
#include <string>
#include <utility>

/// Writes down what it hears: "b" for the text, "c" for the caret, "s" for the selection.
class RecordingMonitor : public IEditableBufferMonitor {
public:
    void onBufferChanged() override { heard_ += 'b'; }
    void onCaretChanged() override { heard_ += 'c'; }
    void onSelectionChanged() override { heard_ += 's'; }

    /// What was heard since the last call.
    std::string take() { return std::exchange(heard_, {}); }

private:
    std::string heard_;
};

/// A document in a host's standard setup, with the protected operations open to tests.
class TestBuffer : public EditableDocumentBuffer {
    using Base = EditableDocumentBuffer;

public:
    using Base::clearPropertiesForElementAt, Base::executeAction, Base::getPropertiesFromElementAt,
        Base::getRootElementPos, Base::setCaret, Base::setPropertiesForElementAt;

    TestBuffer() {
        setUpAsHost(*this);
        setMonitor(&listener_);
    }

    /// Begins with a fragment in the flow of a small document, in the short forms of the markup:
    /// `|` is the caret, `^` the pivot where it differs.
    explicit TestBuffer(const std::wstring& marked) : TestBuffer() {
        std::wstring text = documentWith(marked);
        int pivot = -1;
        int caret = -1;
        for (std::size_t at = 0; (at = text.find_first_of(L"|^", at)) != std::wstring::npos;) {
            (text[at] == L'|' ? caret : pivot) = static_cast<int>(at);
            text.erase(at, 1);
        }
        setContent(Core::String(text), true);
        setCaret(false, pivot < 0 ? caret : pivot);
        setCaret(true, caret);
        heard();
    }

    /// The fragment in the flow, in the short forms with the marks.
    std::wstring marked() const {
        std::wstring text = wide(getContent());
        const int caret = getCaretPos();
        const int pivot = getSelectionPivotPos();
        const auto mark = [&text](int position, const wchar_t* sign) {
            if (position >= 0)
                text.insert(static_cast<std::size_t>(position), sign);
        };
        mark(std::max(caret, pivot), pivot > caret ? L"^" : L"|");
        if (pivot != caret)
            mark(std::min(caret, pivot), pivot > caret ? L"|" : L"^");
        return inShort(flowOf(text));
    }

    /// Where it first stands, given in the short forms.
    int find(const wchar_t* what, int from = 0) const {
        return getContent().find(Core::String(writtenOut<wchar_t>(what)),
                                 static_cast<unsigned>(from));
    }
    int inFlow(const wchar_t* what) const { return find(what, find(L"\"body\">") + 7); }
    /// What its monitor heard since the last call.
    std::string heard() { return listener_.take(); }
    std::wstring text() const { return wide(getContent()); }
    std::wstring flow() const { return flowOf(text()); }

    void recordCaret() {
        getEditActionStack().addAction(
            {EditAction::EditCaret, -1, getCaretPos(), getSelectionPivotPos(), L""});
    }
    void insertRecorded(int position, const Core::String& xml) {
        insertXmlTextAtPosition(position, xml);
        getEditActionStack().addAction({EditAction::EditInsert, position, -1, -1, xml});
    }
    void deleteRecorded(int start, int end) {
        const Core::String removed = deleteXmlText(start, end);
        getEditActionStack().addAction({EditAction::EditDelete, start, -1, -1, removed});
    }

    static std::wstring documentWith(const std::wstring& flow) {
        return LR"(<?xml version="1.0" encoding="utf-8"?>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format">
<fo:layout-master-set><fo:simple-page-master master-name="a"/></fo:layout-master-set>
<fo:page-sequence><fo:flow flow-name="body">)" +
               writtenOut(flow) + L"</fo:flow></fo:page-sequence></qfd:document>";
    }

protected:
    static std::wstring flowOf(const std::wstring& text) {
        const std::size_t start = text.find(L"\"body\">") + 7;
        return text.substr(start, text.find(L"</fo:flow>") - start);
    }

private:
    RecordingMonitor listener_;
};
