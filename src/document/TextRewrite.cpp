#include "document/TextRewrite.h"

#include "document/Document.h"

#include <algorithm>
#include <string>
#include <utility>

using Core::String;

/// The caret as it is when the first change is told of; between two rewrites others may move it.
void TextRewrite::begin() {
    if (begun_)
        return;
    begun_ = true;
    caret_ = document_.caret();
    pivot_ = document_.pivot();
}

void TextRewrite::remove(int start, int end) {
    replace(start, end, {});
}

void TextRewrite::recordCaret() {
    begin();
    document_.recordCaret(caret_, pivot_);
}

void TextRewrite::replace(int start, int end, const String& xml) {
    begin();
    const int position = start + change_;
    for (int* offset : {&caret_, &pivot_}) {
        if (start < end)
            *offset = Document::offsetAfterDeletion(*offset, position, end + change_ - 1);
        if (*offset >= position)
            *offset += xml.length();
    }
    if (records_ == Records::OfEach) {
        document_.recordDeletion(position, document_.text().slice(start, end));
        document_.recordInsertion(position, xml);
    }
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
    const int room = end - start + std::max(change_, 0);
    rewritten.reserve(static_cast<std::size_t>(room));
    int copied = start;
    for (const Replacement& replacement : replacements_) {
        rewritten += document_.text().view(copied, replacement.start);
        rewritten += replacement.xml.view();
        copied = replacement.end;
    }
    replacements_.clear();
    const String xml(std::move(rewritten));
    if (records_ == Records::OfTheWhole) {
        document_.recordDeletion(start, document_.text().slice(start, end));
        document_.recordInsertion(start, xml);
    }
    document_.rewriteUnrecorded(start, end, xml, pivot_, caret_);
    return std::exchange(change_, 0);
}
