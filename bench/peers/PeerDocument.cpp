#include "PeerDocument.h"

#include "GeneratedDocument.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace {

constexpr std::wstring_view ampersand = L"&amp;";

void appendDecoded(std::wstring& text, std::wstring_view markup) {
    for (std::size_t at = 0; (at = markup.find(ampersand)) != std::wstring_view::npos;) {
        text.append(markup.substr(0, at + 1));
        markup.remove_prefix(at + ampersand.size());
    }
    text.append(markup);
}

/// Behind the first letter of a word some way into what a paragraph begins with; npos without such
/// a word or with an entity before.
std::size_t placeIn(std::wstring_view markup) {
    const std::size_t at = markup.find(L' ', 12) + 2;
    const bool isPlain = markup.substr(0, at).find(L'&') == std::wstring_view::npos;
    return at > 2 && at + 1 < markup.size() && isPlain ? at : std::wstring_view::npos;
}

} // namespace

PeerDocument::PeerDocument(long long bytes) : xml(generatedDocument(bytes)) {
    const std::wstring_view all = xml.view();
    std::wstring_view tag;
    for (std::size_t at = 0, end = 0; at < all.size(); at = end) {
        const bool isTag = all[at] == L'<';
        end = isTag ? all.find(L'>', at) + 1 : std::min(all.find(L'<', at), all.size());
        const std::wstring_view markup = all.substr(at, end - at);
        if (isTag) {
            tag = markup;
            text += tag == L"</fo:block>" ? L"\n" : L"";
        } else if (markup.front() != L'\n') { // else it indents what follows
            const std::size_t place = placeIn(markup);
            if (tag.starts_with(L"<fo:block ") && place != std::wstring_view::npos)
                places.push_back(
                    {static_cast<int>(at + place), static_cast<int>(text.size() + place)});
            appendDecoded(text, markup);
        }
    }
}
