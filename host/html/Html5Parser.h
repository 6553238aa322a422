#pragma once

#include <forme/foundation/HtmlParser.h>

#if defined(FORME_HTML_BUILDING)
#define FORME_HTML_API FORME_EXPORT
#else
#define FORME_HTML_API FORME_IMPORT
#endif

/// Reads HTML by the rules that browsers follow, torn HTML included, with the parser Gumbo. What is
/// not HTML, as drawings and formulas, is left out.
///
/// Elements may be nested 512 deep, which is as deep as browsers nest them, and a tag may have 1000
/// attributes.
class FORME_HTML_API Html5Parser : public HtmlParser {
public:
    ~Html5Parser() override;

    void parse(const Core::String& html, HtmlEvents& events) const override;
};
