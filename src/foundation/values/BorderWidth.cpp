#include "foundation/values/BorderWidth.h"

#include "foundation/values/Length.h"

using Core::String;

namespace Xml {

bool BorderWidth::parseBorderWidth(const String& text, BorderWidth& result) {
    const String width = String(text).trim();
    const bool isKeyword = width == L"thin" || width == L"medium" || width == L"thick";
    Length length;
    if (!isKeyword && !Length::parseLength(width, length))
        return false;
    result.text_ = width;
    return true;
}

} // namespace Xml
