#include "document/TextRewrite.h"

#include "document/EditableDocumentBuffer.h"
#include "text/XmlScan.h"

#include <algorithm>
#include <string>
#include <utility>

using Core::String;

/// The caret as it is when the first change is told of; between two rewrites others may move it.
void TextRewrite::begin() {
    if (begun_)
        return;
    begun_ = true;
    caret_ = buffer_.caretPos_;
    pivot_ = buffer_.selectionPivotPos_;
}

void TextRewrite::replace(int start, int end, const String& xml) {
    begin();
    const int position = start + change_;
    const String removed(XmlScan::slice(buffer_.text_.view(), start, end));
    for (int* offset : {&caret_, &pivot_}) {
        if (start < end)
            *offset =
                EditableDocumentBuffer::offsetAfterDeletion(*offset, position, end + change_ - 1);
        if (*offset >= position)
            *offset += xml.length();
    }
    buffer_.recordDeletion(position, removed);
    buffer_.recordInsertion(position, xml);
    replacements_.push_back({start, end, xml});
    change_ += xml.length() - (end - start);
}

void TextRewrite::keepCaretOutside(int start, int end) {
    begin();
    for (int* offset : {&caret_, &pivot_})
        if (start + change_ < *offset && *offset < end + change_)
            *offset = end + change_;
}

int TextRewrite::apply() {
    begun_ = false;
    if (replacements_.empty())
        return 0;
    const int start = replacements_.front().start;
    const int end = replacements_.back().end;
    std::wstring rewritten;
    rewritten.reserve(static_cast<std::size_t>(end - start + std::max(change_, 0)));
    int copied = start;
    for (const Replacement& replacement : replacements_) {
        rewritten.append(XmlScan::slice(buffer_.text_.view(), copied, replacement.start))
            .append(replacement.xml.view());
        copied = replacement.end;
    }
    replacements_.clear();
    if (start < end)
        buffer_.text_.erase(static_cast<unsigned>(start), static_cast<unsigned>(end - start));
    buffer_.text_.insert(static_cast<unsigned>(start), String(std::move(rewritten)));
    buffer_.textChangedFrom(start);
    buffer_.placeCaretAfterEdit(caret_, pivot_);
    return std::exchange(change_, 0);
}
