#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"

#include <exception>
#include <string>

namespace Core {

/// What file access, parsing and a null SmartPtr raise. Thrown by value, caught by reference. The
/// message names the thing, the place and the reason, as in "letter.xml:12:7: mismatched tag".
class FORME_API Exception : public std::exception {
public:
    Exception() = default;
    explicit Exception(const String& message);
    Exception(const Exception&) = default;
    Exception& operator=(const Exception&) = default;
    ~Exception() override;

    String getMessage() const { return message_; }

    /// The message in UTF-8, for code that catches std::exception.
    const char* what() const noexcept override { return narrow_.c_str(); }

    /// Records where in the code the exception was raised; `line` counts from 1.
    void initCodeLocation(const char* file, int line);

    /// Writes the message, with the code location if one was recorded, as a line to standard error.
    void logError() const;

private:
    String message_;
    std::string narrow_;
    const char* file_ = nullptr;
    int line_ = 0;
};

/// Raised when a null SmartPtr is dereferenced.
class FORME_API NullPointerException : public Exception {
public:
    NullPointerException();
    ~NullPointerException() override;
};

/// Raises a logged NullPointerException for the given code location.
[[noreturn]] FORME_API void throwNullPointer(const char* file, int line);

} // namespace Core
