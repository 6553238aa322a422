#include "Components.h"

#ifdef FORME_WITH_HTML
#include <forme-html/Html5Parser.h>
#endif
#ifdef FORME_WITH_UNICODE
#include <forme-unicode/IcuSegmenter.h>
#endif

SmartPtr<HtmlParser> builtInHtmlParser() {
#ifdef FORME_WITH_HTML
    return new Html5Parser;
#else
    return nullptr;
#endif
}

SmartPtr<TextSegmenter> builtInTextSegmenter() {
#ifdef FORME_WITH_UNICODE
    return new IcuSegmenter;
#else
    return nullptr;
#endif
}
