#include "foundation/Exception.h"

#include "foundation/Encoder.h"

#include <iostream>

namespace Core {

Exception::Exception(const String& message)
    : message_(message), narrow_(Encoder::toDisplayText(message)) {}

Exception::~Exception() = default;

void Exception::initCodeLocation(const char* file, int line) {
    file_ = file;
    line_ = line;
}

void Exception::logError() const {
    if (file_)
        std::cerr << file_ << ':' << line_ << ": ";
    std::cerr << narrow_ << '\n';
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
