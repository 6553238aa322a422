#include "foundation/values/LengthOrPercent.h"

#include "foundation/Format.h"

using Core::Format;
using Core::String;

namespace Xml {

bool LengthOrPercent::parseLengthOrPercent(const String& text, LengthOrPercent& result) {
    result = LengthOrPercent();
    result.text_ = String(text).trim();
    if (!result.text_.endsIn(L"%"))
        return Length::parseLength(result.text_, result.length_);
    const String number(result.text_.view().substr(0, result.text_.view().size() - 1));
    result.isPercent_ = Format::parseFloat(number, result.percent_);
    return result.isPercent_;
}

void LengthOrPercent::setPercent(float percent) {
    *this = LengthOrPercent();
    isPercent_ = true;
    percent_ = percent;
    text_ = Format::formatValue(percent, L"") + L"%";
}

void LengthOrPercent::setLength(const Length& length) {
    *this = LengthOrPercent();
    length_ = length;
    text_ = length.getValueAsString();
}

} // namespace Xml
