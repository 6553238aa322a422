#include <forme/foundation/Console.h>
#include <forme/foundation/Encoder.h>

#include <string>

#include <emscripten.h>

namespace Core {

void Console::writeLine(const wchar_t* text) {
    const std::string line = Encoder::toDisplayText(text);
    EM_ASM({ console.error(UTF8ToString($0)); }, line.c_str());
}

} // namespace Core
