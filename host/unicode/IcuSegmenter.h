#pragma once

#include <forme/foundation/TextSegmenter.h>

#include <memory>

#if defined(_WIN32)
#if defined(FORME_UNICODE_BUILDING)
#define FORME_UNICODE_API __declspec(dllexport)
#else
#define FORME_UNICODE_API __declspec(dllimport)
#endif
#else
#define FORME_UNICODE_API __attribute__((visibility("default")))
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
