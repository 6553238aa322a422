#include "Components.h"

#ifdef FORME_WITH_HTML
#include <forme-html/Html5Parser.h>
#endif

SmartPtr<HtmlParser> builtInHtmlParser() {
#ifdef FORME_WITH_HTML
    return new Html5Parser;
#else
    return nullptr;
#endif
}
