#include "foundation/HtmlParser.h"

HtmlEvents::~HtmlEvents() = default;

HtmlParser::~HtmlParser() = default;
