#pragma once

namespace Core::IO {

/// What a TextWriter writes. Readers find out by themselves.
enum class Encoding { UTF8 = 1, UTF16LE = 2 };

} // namespace Core::IO
