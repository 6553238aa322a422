#pragma once

#include <forme/foundation/HtmlParser.h>

/// HTML as the browser's own parser reads it, without running or fetching anything that it holds.
class BrowserHtmlParser : public HtmlParser {
public:
    void parse(const Core::String& html, HtmlEvents& events) const override;
};
