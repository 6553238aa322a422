#pragma once

#include "Session.h"
#include "document/Document.h"
#include "foundation/Wide.h"
#include "support/EditorState.h"
#include "support/ShortMarkup.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

/// The state that a text shows with its marks: `|` is the caret, `^` the pivot where it differs.
inline EditorState parseMarks(std::wstring marked) {
    EditorState state;
    for (std::size_t at = 0; (at = marked.find_first_of(L"|^", at)) != std::wstring::npos;) {
        (marked[at] == L'|' ? state.caret : state.pivot) = static_cast<int>(at);
        marked.erase(at, 1);
    }
    state.pivot = state.pivot < 0 ? state.caret : state.pivot;
    state.text = Core::String(marked);
    return state;
}

/// The text of a state with its marks.
inline std::wstring withMarks(const EditorState& state) {
    std::wstring text = wide(state.text);
    const auto mark = [&text](int position, wchar_t sign) {
        if (position >= 0)
            text.insert(static_cast<std::size_t>(position), 1, sign);
    };
    mark(std::max(state.caret, state.pivot), state.caret >= state.pivot ? L'|' : L'^');
    if (state.caret != state.pivot)
        mark(std::min(state.caret, state.pivot), state.caret < state.pivot ? L'|' : L'^');
    return text;
}

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

/// A document in a host's standard setup. `->` leads to its face; the functions of the rooms take
/// it as their Document.
class MarkedDocument {
public:
    MarkedDocument() {
        setUpAsHost(*face_);
        face_->setMonitor(&listener_);
    }

    /// Begins with a fragment in the flow of a small document, in the short forms of the markup and
    /// with its marks.
    explicit MarkedDocument(const std::wstring& marked) : MarkedDocument() {
        const EditorState state = parseMarks(documentWith(marked));
        face_->setContent(state.text, true);
        document().setCaret(state.pivot);
        document().extendTo(state.caret);
        heard();
    }

    EditableDocumentBuffer* operator->() const { return face_.get(); }
    EditableDocumentBuffer& face() const { return *face_; }
    Document& document() const { return Document::of(*face_); }
    operator Document&() const { return document(); } // NOLINT(google-explicit-constructor)
    const XmlText& text() const { return document().text(); }
    int caret() const { return document().caret(); }

    std::wstring content() const { return wide(text().content()); }
    std::wstring flow() const { return flowOf(content()); }
    /// The fragment in the flow, in the short forms with the marks.
    std::wstring marked() const { return inShort(flowOf(withMarks(stateOf(*face_)))); }
    /// The same with `|` at each of the offsets, which ascend.
    std::wstring markedAt(const std::vector<int>& offsets) const {
        std::wstring text = content();
        for (auto at = offsets.rbegin(); at != offsets.rend(); ++at)
            text.insert(static_cast<std::size_t>(*at), L"|");
        return inShort(flowOf(text));
    }

    /// Where it first stands, given in the short forms.
    int find(const wchar_t* what, int from = 0) const {
        return text().find(writtenOut<wchar_t>(what), from);
    }
    int inFlow(const wchar_t* what) const { return find(what, find(L"\"body\">") + 7); }
    /// What its monitor heard since the last call.
    std::string heard() { return listener_.take(); }

    void insertRecorded(int position, const Core::String& xml) {
        document().insertUnrecorded(position, xml);
        document().recordInsertion(position, xml);
    }
    void deleteRecorded(int start, int end) {
        document().recordDeletion(start, document().removeUnrecorded(start, end));
    }

    static std::wstring documentWith(const std::wstring& flow) {
        return LR"(<?xml version="1.0" encoding="utf-8"?>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format">
<fo:layout-master-set><fo:simple-page-master master-name="a"/></fo:layout-master-set>
<fo:page-sequence><fo:flow flow-name="body">)" +
               writtenOut(flow) + L"</fo:flow></fo:page-sequence></qfd:document>";
    }

    static std::wstring flowOf(const std::wstring& text) {
        const std::size_t start = text.find(L"\"body\">") + 7;
        return text.substr(start, text.find(L"</fo:flow>") - start);
    }

private:
    RecordingMonitor listener_;
    SmartPtr<EditableDocumentBuffer> face_{new EditableDocumentBuffer};
};
