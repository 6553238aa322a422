#pragma once

#include "foundation/StoredText.h"
#include "text/store/TextStore.h"

/// What a text was at a time, for a Core::String to stand for. A reader has a store of its own for
/// each question, so that several threads may ask.
class StoredContent final : public Core::StoredText {
public:
    explicit StoredContent(const TextStore& text) : text_(text) {}

    int length() const noexcept override { return text_.length(); }
    wchar_t unitAt(int position) const noexcept override {
        return TextStore(text_).unitAt(position);
    }
    std::wstring slice(int start, int end) const override;
    int find(std::wstring_view what, unsigned long long start) const noexcept override;
    int rFind(std::wstring_view what, unsigned long long start) const noexcept override;

private:
    TextStore text_;
};
