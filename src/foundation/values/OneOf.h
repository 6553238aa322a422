#pragma once

#include <algorithm>
#include <initializer_list>
#include <string_view>

inline bool isOneOf(std::wstring_view word,
                    std::initializer_list<std::wstring_view> words) noexcept {
    return std::find(words.begin(), words.end(), word) != words.end();
}
