#pragma once

#include <forme/foundation/HtmlParser.h>
#include <forme/foundation/SmartPtr.h>
#include <forme/foundation/TextSegmenter.h>

// What this program was built with; null for what it was built without. The spell checker is in
// Spelling.h.

SmartPtr<HtmlParser> builtInHtmlParser();
SmartPtr<TextSegmenter> builtInTextSegmenter();
