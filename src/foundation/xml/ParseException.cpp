#include "foundation/xml/ParseException.h"

namespace Xml {

namespace {

Core::String message(const Core::String& source, int line, int column, const Core::String& reason) {
    Core::String place = Core::String::formatS(line) + L":" + Core::String::formatS(column);
    return (source.empty() ? place : source + L":" + place) + L": " + reason;
}

} // namespace

ParseException::ParseException(const Core::String& source, int line, int column,
                               const Core::String& reason)
    : Core::Exception(message(source, line, column, reason)), line_(line), column_(column) {}

ParseException::~ParseException() = default;

} // namespace Xml
