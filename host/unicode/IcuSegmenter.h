#pragma once

#include <forme/foundation/TextSegmenter.h>

#include <memory>

#if defined(FORME_UNICODE_BUILDING)
#define FORME_UNICODE_API FORME_EXPORT
#else
#define FORME_UNICODE_API FORME_IMPORT
#endif

/// Tells where characters, words and sentences end by Unicode's rules (UAX 29), with ICU.
class FORME_UNICODE_API IcuSegmenter : public TextSegmenter {
public:
    /// Throws Core::Exception where ICU's data is not there.
    IcuSegmenter();
    ~IcuSegmenter() override;

    IcuSegmenter(const IcuSegmenter&) = delete;
    IcuSegmenter& operator=(const IcuSegmenter&) = delete;

    int next(Unit unit, std::wstring_view text, int position) const override;
    int previous(Unit unit, std::wstring_view text, int position) const override;

private:
    class Breaks;

    Breaks& breaksOf(Unit unit, std::wstring_view text) const;

    std::unique_ptr<Breaks> breaks_[3];
};
