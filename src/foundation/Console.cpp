#include "foundation/Console.h"

#include "foundation/Encoder.h"

#include <iostream>

namespace Core {

void Console::writeLine(const wchar_t* text) {
    std::cerr << Encoder::toDisplayText(text) << '\n';
}

} // namespace Core
