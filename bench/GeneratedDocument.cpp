#include "GeneratedDocument.h"

#include <array>
#include <random>
#include <string>
#include <utility>

namespace {

constexpr std::array words{L"the",     L"quarterly", L"statement", L"of",      L"account",
                           L"shows",   L"payments",  L"received",  L"in",      L"March",
                           L"and",     L"balances",  L"carried",   L"forward", L"with",
                           L"charges", L"where",     L"they",      L"apply",   L"na\u00EFve"};

class Writer {
public:
    explicit Writer(std::size_t size) : size_(size) { text_.reserve(size + 4096); }

    std::wstring write() {
        text_ = LR"(<?xml version="1.0" encoding="utf-8"?>
<qfd:document xmlns:qfd="urn:forme:qfd/1.0" xmlns:fo="http://www.w3.org/1999/XSL/Format">
	<fo:layout-master-set>
		<fo:simple-page-master master-name="page"><fo:region-body/></fo:simple-page-master>
	</fo:layout-master-set>
	<fo:page-sequence master-reference="page">
		<fo:flow flow-name="xsl-region-body">
)";
        for (int i = 0; text_.size() < size_; ++i) {
            if (i % 50 == 49)
                table();
            else if (i % 20 == 19)
                list();
            else
                block();
        }
        text_ += L"\t\t</fo:flow>\n\t</fo:page-sequence>\n</qfd:document>\n";
        return std::move(text_);
    }

private:
    unsigned pick(unsigned count) { return random_() % count; }

    void sentence() {
        for (unsigned count = 8 + pick(40); count > 0; --count) {
            const wchar_t* const word = words[pick(words.size())];
            if (pick(12) == 0)
                text_.append(L"<fo:inline font-weight=\"bold\">")
                    .append(word)
                    .append(L"</fo:inline>");
            else
                text_ += word;
            text_ += pick(30) == 0 ? L" &amp; " : L" ";
        }
    }

    void block() {
        text_ += L"\t\t\t<fo:block space-after=\"6pt\" font-size=\"10pt\">";
        sentence();
        text_ += L"</fo:block>\n";
    }

    void list() {
        text_ += L"\t\t\t<fo:list-block>";
        for (int item = 1; item <= 3; ++item) {
            text_.append(L"<fo:list-item><fo:list-item-label><fo:block>")
                .append(std::to_wstring(item))
                .append(L")</fo:block></fo:list-item-label><fo:list-item-body><fo:block>");
            sentence();
            text_ += L"</fo:block></fo:list-item-body></fo:list-item>";
        }
        text_ += L"</fo:list-block>\n";
    }

    void table() {
        text_ += L"\t\t\t<fo:table table-layout=\"fixed\"><fo:table-body>";
        for (int row = 0; row < 4; ++row) {
            text_ += L"<fo:table-row>";
            for (int cell = 0; cell < 3; ++cell)
                text_ += L"<fo:table-cell><fo:block>12.50</fo:block></fo:table-cell>";
            text_ += L"</fo:table-row>";
        }
        text_ += L"</fo:table-body></fo:table>\n";
    }

    std::mt19937 random_{20260101};
    std::size_t size_;
    std::wstring text_;
};

} // namespace

Core::String generatedDocument(long long bytes) {
    return Core::String(Writer(static_cast<std::size_t>(bytes)).write());
}
