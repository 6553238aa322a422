#include "foundation/XmlReader.h"
#include "foundation/FileStream.h"
#include "foundation/MemoryStream.h"
#include "foundation/Messages.h"
#include "foundation/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace Core;
using namespace Core::IO;

using namespace std::string_literals;

namespace {

std::wstring read(const std::string& bytes) {
    return std::wstring(XmlReader(new MemoryStream(ByteArray(bytes))).readToEnd().view());
}

std::string faultOf(const std::string& bytes) {
    return messageOf([&] { read(bytes); });
}

std::string declaring(const std::string& encoding, const std::string& content) {
    return "<?xml version=\"1.0\" encoding='" + encoding + "'?><a>" + content + "</a>";
}

std::wstring contentOf(const std::string& encoding, const std::string& content) {
    const std::wstring text = read(declaring(encoding, content));
    const std::size_t start = text.find(L"<a>") + 3;
    return text.substr(start, text.size() - 4 - start);
}

/// ASCII as UTF-16, the byte of the character first or last.
std::string utf16(const std::string& text, bool bigEndian = false) {
    std::string bytes;
    for (char ch : text)
        bytes += bigEndian ? std::string{'\0', ch} : std::string{ch, '\0'};
    return bytes;
}

std::wstring wide(const std::string& ascii) {
    return std::wstring(ascii.begin(), ascii.end());
}

TEST(XmlReader, AByteOrderMarkWinsOverTheDeclaration) {
    const std::string lie = declaring("ISO-8859-1", "x");
    EXPECT_EQ(read("\xEF\xBB\xBF" + lie + "\xC3\xA9"), wide(lie) + L"\xE9");
    EXPECT_EQ(read("\xFF\xFE" + utf16(lie) + "\x3D\xD8\x00\xDE"s), wide(lie) + L"\xD83D\xDE00");
    EXPECT_EQ(read("\xFE\xFF" + utf16(lie, true)), wide(lie));
}

TEST(XmlReader, Utf16IsKnownWithoutAMark) {
    for (const bool bigEndian : {false, true})
        for (const std::string& text :
             {declaring("UTF-16", "x"), declaring(bigEndian ? "UTF-16BE" : "utf-16le", "x"),
              "<a/>"s})
            EXPECT_EQ(read(utf16(text, bigEndian)), wide(text));
}

TEST(XmlReader, TheDeclarationNamesTheEncoding) {
    EXPECT_EQ(contentOf("iso-8859-1", "\xE9"), L"\xE9");
    EXPECT_EQ(contentOf("windows-1252", "\x80"), L"\x20AC");
    EXPECT_EQ(contentOf("windows-1251", std::string(20000, '\xC6')), std::wstring(20000, 0x0416));
    EXPECT_EQ(contentOf("GB18030", "\x94\x39\xDA\x33"), L"\xD83D\xDCA9");
    EXPECT_EQ(read("<a \n encoding=\"klingon\">\xC3\xA9</a>"),
              L"<a \n encoding=\"klingon\">\xE9</a>");
    EXPECT_EQ(read("<?xml version='1.0' encoding\t= \"windows-1258\" ?><a/>z"),
              L"<?xml version='1.0' encoding\t= \"windows-1258\" ?><a/>z")
        << "the last letter is held back until it is known that no combining mark follows";
}

TEST(XmlReader, ADeclarationThatLiesOrNamesNoEncodingIsRefused) {
    const auto lie = [](const std::string& place, const std::string& name) {
        return "byte " + place + ": the encoding is declared as \"" + name +
               "\", but the bytes are not";
    };
    EXPECT_EQ(faultOf(declaring("UTF-16", "x")), lie("30", "UTF-16"));
    EXPECT_EQ(faultOf(utf16(declaring("utf-8", "x"))), lie("60", "utf-8"));
    EXPECT_EQ(faultOf(utf16(declaring("UTF-16LE", "x"), true)), lie("60", "UTF-16LE"));
    EXPECT_EQ(faultOf(declaring("US-ASCII", "\xC3\xA9")), "byte 44: no character of US-ASCII");
    EXPECT_EQ(faultOf(declaring("klingon", "x")), "byte 30: unknown encoding \"klingon\"");
    for (const std::string& none :
         {declaring("ascii//IGNORE", ""), declaring("", ""), declaring("8859", ""),
          declaring("utf 8", ""), declaring("latin\xE9", ""), "<?xml encoding=utf-8?>"s,
          "<?xml encoding='utf-8 ?>"s})
        EXPECT_TRUE(faultOf(none).ends_with("\" is no encoding name")) << none;
}

TEST(XmlReader, MalformedBytesAreRefusedWithTheirPlace) {
    EXPECT_EQ(faultOf("\xEF\xBB\xBF<a>\xE2\x82"), "byte 6: truncated UTF-8 sequence");
    EXPECT_EQ(faultOf("<a>" + std::string(70000, 'x') + "\x80"),
              "byte 70003: stray UTF-8 continuation byte");
    for (const std::string& lone :
         {"\xFF\xFE<\0\x3D\xD8x\0"s, "\xFF\xFE<\0\x00\xDE"s, "\xFE\xFF\0<\xD8\x3D"s})
        EXPECT_EQ(faultOf(lone), "byte 4: lone surrogate in UTF-16");
    EXPECT_EQ(faultOf("\xFF\xFE" + utf16("<a/>") + " "),
              "byte 10: UTF-16 with an odd number of bytes");
    EXPECT_EQ(faultOf("\xFF\xFE" + utf16("<a>\0</a>"s)),
              "byte 8: a NUL, which is no character of a text");
    EXPECT_EQ(read("\xFF\xFE\x61\0\0\x61"s), L"a\x6100") << "a zero byte is no NUL in UTF-16";
    for (const char* nothing : {"", "\xEF\xBB\xBF", "\xFF\xFE"})
        EXPECT_EQ(faultOf(nothing), "empty, so not an XML document");
}

TEST(XmlReader, AFileOfAnySizeFailsFastAndByName) {
    const TemporaryFolder folder;
    const std::wstring path = folder.put("huge.xml", "");
    const auto faultAtSize = [&](std::uintmax_t size) {
        std::filesystem::resize_file(path, size);
        SmartPtr<Stream> file = new FileStream(path.c_str(), false, false, false);
        const std::string message = messageOf([&] { XmlReader(file).readToEnd(); });
        EXPECT_LE(file->seek(0, SeekOrigin::Current), 1 << 20) << "it went on reading";
        return message.substr(message.rfind('/') + 1);
    };
    EXPECT_EQ(faultAtSize(1U << 30U), "huge.xml: byte 0: a NUL, which is no character of a text");
    EXPECT_EQ(faultAtSize(1U << 31U),
              "huge.xml: too long: 2147483648 bytes, of at most 2147483647");
}

TEST(TextReader, ReadsFromThePositionAndLooksForNoDeclaration) {
    SmartPtr<Stream> stream =
        new MemoryStream(ByteArray("x<?xml version='1.0' encoding='ISO-8859-1'?>\xC3\xA9"));
    stream->seek(1, SeekOrigin::Begin);
    TextReader reader(stream);
    EXPECT_EQ(reader.readToEnd(), L"<?xml version='1.0' encoding='ISO-8859-1'?>\xE9");
    EXPECT_EQ(TextReader(new MemoryStream(ByteArray("\xFE\xFF\x20\xAC"))).readToEnd(), L"\x20AC");
    EXPECT_TRUE(TextReader(new MemoryStream).readToEnd().empty());
}

} // namespace
