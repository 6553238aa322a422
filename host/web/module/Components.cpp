// What the browser has itself stands in the place of the libraries that other hosts link.

#include "Components.h"

#include "BrowserHtmlParser.h"
#include "BrowserSegmenter.h"
#include "Spelling.h"

SmartPtr<HtmlParser> builtInHtmlParser() {
    return new BrowserHtmlParser;
}

SmartPtr<TextSegmenter> builtInTextSegmenter() {
    return new BrowserSegmenter;
}

/// Words are checked by the page, which draws what is misspelt.
SmartPtr<Drawing::SpellChecker> systemSpellChecker() {
    return nullptr;
}
