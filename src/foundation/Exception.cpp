#include "foundation/Exception.h"

#include "foundation/Console.h"
#include "foundation/Encoder.h"

namespace Core {

Exception::Exception(const String& message)
    : message_(message), narrow_(Encoder::toDisplayText(message)) {}

Exception::~Exception() = default;

void Exception::initCodeLocation(const char* file, int line) {
    file_ = file;
    line_ = line;
}

void Exception::logError() const {
    const String place = file_ ? String(file_) + L":" + String::formatS(line_) + L": " : String();
    Console::writeLine((place + message_).c_str());
}

NullPointerException::NullPointerException() : Exception(L"a null pointer was dereferenced") {}

NullPointerException::~NullPointerException() = default;

void throwNullPointer(const char* file, int line) {
    NullPointerException exception;
    exception.initCodeLocation(file, line);
    exception.logError();
    throw exception;
}

} // namespace Core
