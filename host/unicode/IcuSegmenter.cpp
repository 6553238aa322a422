#include "IcuSegmenter.h"

#include <forme/foundation/Exception.h>
#include <forme/foundation/String.h>

#include <unicode/ubrk.h>

#include <cstdint>
#include <string>

using Core::Exception;
using Core::String;

namespace {

constexpr UBreakIteratorType typeOf(TextSegmenter::Unit unit) {
    switch (unit) {
    case TextSegmenter::Unit::Cluster:
        return UBRK_CHARACTER;
    case TextSegmenter::Unit::Word:
        return UBRK_WORD;
    case TextSegmenter::Unit::Sentence:
        break;
    }
    return UBRK_SENTENCE;
}

void require(UErrorCode status, const wchar_t* what) {
    if (U_FAILURE(status))
        throw Exception(String(L"ICU: ") + what + L": " + String(u_errorName(status)));
}

} // namespace

/// The boundaries of one kind in the text that was asked about last.
class IcuSegmenter::Breaks {
public:
    explicit Breaks(Unit unit) {
        UErrorCode status = U_ZERO_ERROR;
        breaks_.reset(ubrk_open(typeOf(unit), "", nullptr, 0, &status));
        require(status, L"no rules for the boundaries of text");
    }

    void read(std::wstring_view text) {
        units_.assign(text.begin(), text.end()); // each is a 16-bit unit
        UErrorCode status = U_ZERO_ERROR;
        ubrk_setText(breaks_.get(), units_.data(), static_cast<std::int32_t>(units_.size()),
                     &status);
        require(status, L"a text cannot be read");
    }

    int next(int position) { return ubrk_following(breaks_.get(), position); }
    int previous(int position) { return ubrk_preceding(breaks_.get(), position); }
    int size() const { return static_cast<int>(units_.size()); }

private:
    struct Close {
        void operator()(UBreakIterator* breaks) const { ubrk_close(breaks); }
    };

    std::unique_ptr<UBreakIterator, Close> breaks_;
    std::u16string units_;
};

IcuSegmenter::IcuSegmenter() {
    for (const Unit unit : {Unit::Cluster, Unit::Word, Unit::Sentence})
        breaks_[static_cast<std::size_t>(unit)] = std::make_unique<Breaks>(unit);
}

IcuSegmenter::~IcuSegmenter() = default;

IcuSegmenter::Breaks& IcuSegmenter::breaksOf(Unit unit, std::wstring_view text) const {
    Breaks& breaks = *breaks_[static_cast<std::size_t>(unit)];
    breaks.read(text);
    return breaks;
}

int IcuSegmenter::next(Unit unit, std::wstring_view text, int position) const {
    Breaks& breaks = breaksOf(unit, text);
    const int found = breaks.next(position);
    return found == UBRK_DONE ? breaks.size() : found;
}

int IcuSegmenter::previous(Unit unit, std::wstring_view text, int position) const {
    const int found = breaksOf(unit, text).previous(position);
    return found == UBRK_DONE ? 0 : found;
}
