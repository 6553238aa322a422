#include "foundation/XmlReader.h"

#include "foundation/Decoder.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace Core::IO {

namespace {

using Transcoding::ByteOrder;

constexpr std::string_view blanks = " \t\r\n";

/// UTF-16 without a mark shows in its first two characters: markup is ASCII.
std::optional<ByteOrder> byteOrderByShape(std::string_view head) {
    if (head.size() < 4)
        return std::nullopt;
    const auto isZero = [&](std::size_t offset) { return head[offset] == 0; };
    if (!isZero(0) && isZero(1) && !isZero(2) && isZero(3))
        return ByteOrder::LittleEndian;
    if (isZero(0) && !isZero(1) && isZero(2) && !isZero(3))
        return ByteOrder::BigEndian;
    return std::nullopt;
}

/// One byte for each unit of UTF-16, which is enough to read a declaration.
std::string narrowed(std::string_view head, ByteOrder order) {
    std::string narrow;
    for (std::size_t i = order == ByteOrder::LittleEndian ? 0 : 1; i < head.size(); i += 2)
        narrow += head[i];
    return narrow;
}

/// From "<?xml" up to the "?>", which is left out; empty without a declaration.
std::string_view declarationIn(std::string_view head) {
    constexpr std::string_view opening = "<?xml";
    const std::size_t end = head.find("?>");
    if (!head.starts_with(opening) || end == std::string_view::npos ||
        blanks.find(head[opening.size()]) == std::string_view::npos)
        return {};
    return head.substr(0, end);
}

std::string_view withoutBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

/// What stands in quotes behind `encoding =`, empty if that cannot be read; nothing if the
/// declaration names no encoding.
std::optional<std::string_view> encodingIn(std::string_view declaration) {
    constexpr std::string_view label = "encoding";
    const std::size_t at = declaration.find(label);
    if (at == std::string_view::npos || blanks.find(declaration[at - 1]) == std::string_view::npos)
        return std::nullopt;
    std::string_view rest = withoutBlanks(declaration.substr(at + label.size()));
    if (!rest.starts_with('='))
        return rest.substr(0, 0);
    rest = withoutBlanks(rest.substr(1));
    if (!rest.starts_with('"') && !rest.starts_with('\''))
        return rest.substr(0, 0);
    const std::size_t end = rest.find(rest.front(), 1);
    return rest.substr(1, end == std::string_view::npos ? 0 : end - 1);
}

bool isLetter(char ch) {
    return (ch >= 'A' && ch <= 'Z') || (ch >= 'a' && ch <= 'z');
}

bool isEncodingName(std::string_view name) {
    return !name.empty() && isLetter(name.front()) &&
           std::all_of(name.begin(), name.end(), [](char ch) {
               return isLetter(ch) || (ch >= '0' && ch <= '9') ||
                      std::string_view("._-").find(ch) != std::string_view::npos;
           });
}

/// Whether `bytes`, the beginning of a declaration, are one in the encoding of `decoder` too.
bool readsAsDeclaration(Decoder& decoder, std::string_view bytes) {
    std::wstring units;
    decoder.decode(bytes, units);
    return units.starts_with(L"<?xml");
}

} // namespace

XmlReader::XmlReader(SmartPtr<Stream> stream) : TextReader(std::move(stream)) {}

XmlReader::~XmlReader() = default;

std::unique_ptr<Decoder> XmlReader::chooseDecoder(std::string_view head,
                                                  std::unique_ptr<Decoder> marked) {
    if (head.empty())
        fail(L"empty, so not an XML document");
    if (marked)
        return marked;

    const std::optional<ByteOrder> order = byteOrderByShape(head);
    const std::string narrow = order ? narrowed(head, *order) : std::string(head);
    const std::size_t width = order ? 2 : 1;
    const std::string_view declaration = declarationIn(narrow);
    if (const auto name = encodingIn(declaration)) {
        const auto offset = static_cast<std::size_t>(name->data() - narrow.data()) * width;
        return declaredDecoder(head.substr(0, declaration.size() * width), *name, offset);
    }
    return order ? Decoder::utf16(*order) : Decoder::utf8();
}

std::unique_ptr<Decoder> XmlReader::declaredDecoder(std::string_view declaration,
                                                    std::string_view name,
                                                    std::size_t nameOffset) const {
    const std::string encoding(name);
    const String quoted = L"\"" + String(encoding.c_str()) + L"\"";
    if (!isEncodingName(name))
        failAt(nameOffset, quoted + L" is no encoding name");
    const ByteOrder order = byteOrderByShape(declaration).value_or(ByteOrder::LittleEndian);
    const std::unique_ptr<Decoder> trial = Decoder::named(encoding, order);
    if (!trial)
        failAt(nameOffset, L"unknown encoding " + quoted);
    if (!readsAsDeclaration(*trial, declaration))
        failAt(nameOffset, L"the encoding is declared as " + quoted + L", but the bytes are not");
    return Decoder::named(encoding, order);
}

} // namespace Core::IO
