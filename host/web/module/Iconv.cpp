// The three functions of the C library, on the browser's TextDecoder: the tables of the C library
// would be a fifth of the page.

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdint>

#include <emscripten.h>
#include <iconv.h>

// clang-format off
EM_JS(int, openDecoder, (const char* name), {
    const open = openDecoder.open || (openDecoder.open = []);
    try {
        open.push(new TextDecoder(UTF8ToString(name), {fatal: true, ignoreBOM: true}));
        return open.length;
    } catch {
        return 0;
    }
});

EM_JS(void, closeDecoder, (int decoder), { delete openDecoder.open[decoder - 1]; });

// Answers how many units were written, -1 for bytes that are no characters.
EM_JS(int, decodeBytes, (int decoder, const char* from, int count, char* to), {
    try {
        const bytes = HEAPU8.subarray(from, from + count);
        const text = openDecoder.open[decoder - 1].decode(bytes, {stream: true});
        for (let i = 0; i < text.length; ++i)
            HEAPU16[to / 2 + i] = text.charCodeAt(i);
        return text.length;
    } catch {
        return -1;
    }
});
// clang-format on

namespace {

int numberOf(iconv_t conversion) {
    return static_cast<int>(reinterpret_cast<std::intptr_t>(conversion));
}

} // namespace

extern "C" iconv_t iconv_open(const char*, const char* from) {
    const int decoder = openDecoder(from);
    return reinterpret_cast<iconv_t>(static_cast<std::intptr_t>(decoder ? decoder : -1));
}

extern "C" int iconv_close(iconv_t conversion) {
    closeDecoder(numberOf(conversion));
    return 0;
}

/// A byte gives two units at most, of two bytes each.
extern "C" std::size_t iconv(iconv_t conversion, char** from, std::size_t* left, char** to,
                             std::size_t* room) {
    const std::size_t count = from ? std::min(*left, *room / 4) : 0;
    if (count == 0)
        return 0;
    const int units = decodeBytes(numberOf(conversion), *from, static_cast<int>(count), *to);
    if (units < 0) {
        errno = EILSEQ;
        return static_cast<std::size_t>(-1);
    }
    *from += count;
    *left -= count;
    *to += static_cast<std::ptrdiff_t>(units) * 2;
    *room -= static_cast<std::size_t>(units) * 2;
    if (*left == 0)
        return 0;
    errno = E2BIG;
    return static_cast<std::size_t>(-1);
}
