#pragma once

#include <forme/foundation/TextSegmenter.h>

/// Where characters, words and sentences end, as the browser's Intl.Segmenter knows it.
class BrowserSegmenter : public TextSegmenter {
public:
    int next(Unit unit, std::wstring_view text, int position) const override;
    int previous(Unit unit, std::wstring_view text, int position) const override;
};
