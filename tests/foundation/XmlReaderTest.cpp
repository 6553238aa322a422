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
    for (const char* name : {"UTF-16", "utf-16le"})
        EXPECT_EQ(read(utf16(declaring(name, "x"))), wide(declaring(name, "x")));
    for (const char* name : {"UTF-16", "UTF-16BE"})
        EXPECT_EQ(read(utf16(declaring(name, "x"), true)), wide(declaring(name, "x")));
    EXPECT_EQ(read(utf16("<a/>")), L"<a/>");
    EXPECT_EQ(read(utf16("<a/>", true)), L"<a/>");
}

TEST(XmlReader, TheDeclarationNamesTheEncoding) {
    EXPECT_EQ(contentOf("iso-8859-1", "\xE9"), L"\xE9");
    EXPECT_EQ(contentOf("ISO-8859-15", "\xA4"), L"\x20AC");
    EXPECT_EQ(contentOf("windows-1252", "\x80"), L"\x20AC");
    EXPECT_EQ(contentOf("windows-1251", std::string(20000, '\xC6')), std::wstring(20000, 0x0416));
    EXPECT_EQ(contentOf("Shift_JIS", "\x93\xFA"), L"\x65E5");
    EXPECT_EQ(contentOf("GB18030", "\x94\x39\xDA\x33"), L"\xD83D\xDCA9");
    EXPECT_EQ(read("<a \n encoding=\"klingon\">\xC3\xA9</a>"),
              L"<a \n encoding=\"klingon\">\xE9</a>");
    EXPECT_EQ(read("<?xml version='1.0'?>\xC3\xA9"), L"<?xml version='1.0'?>\xE9");
    EXPECT_EQ(read("<?xml version='1.0' encoding\t= \"windows-1258\" ?><a/>z"),
              L"<?xml version='1.0' encoding\t= \"windows-1258\" ?><a/>z")
        << "the last letter is held back until it is known that no combining mark follows";
}

TEST(XmlReader, ADeclarationThatLiesIsRefused) {
    EXPECT_EQ(faultOf(declaring("UTF-16", "x")),
              "byte 30: the encoding is declared as \"UTF-16\", but the bytes are not");
    EXPECT_EQ(faultOf(utf16(declaring("utf-8", "x"))),
              "byte 60: the encoding is declared as \"utf-8\", but the bytes are not");
    EXPECT_EQ(faultOf(utf16(declaring("UTF-16LE", "x"), true)),
              "byte 60: the encoding is declared as \"UTF-16LE\", but the bytes are not");
    EXPECT_EQ(faultOf(declaring("US-ASCII", "\xC3\xA9")), "byte 44: no character of US-ASCII");
    EXPECT_EQ(faultOf(declaring("utf-8", "caf\xE9.")), "byte 44: truncated UTF-8 sequence");
}

TEST(XmlReader, AnEncodingNameIsCheckedBeforeItIsUsed) {
    EXPECT_EQ(faultOf(declaring("klingon", "x")), "byte 30: unknown encoding \"klingon\"");
    for (const char* name : {"ascii//IGNORE", "", "8859", "utf 8", "latin\xE9"})
        EXPECT_TRUE(faultOf(declaring(name, "x")).ends_with("\" is no encoding name")) << name;
    EXPECT_TRUE(faultOf("<?xml encoding=utf-8?>").ends_with("\"\" is no encoding name"));
    EXPECT_TRUE(faultOf("<?xml encoding='utf-8 ?>").ends_with("\"\" is no encoding name"));
}

TEST(XmlReader, MalformedBytesAreRefusedWithTheirPlace) {
    EXPECT_EQ(faultOf("\xEF\xBB\xBF<a>\xE2\x82"), "byte 6: truncated UTF-8 sequence");
    EXPECT_EQ(faultOf("<a>" + std::string(70000, 'x') + "\x80"),
              "byte 70003: stray UTF-8 continuation byte");
    EXPECT_EQ(faultOf("\xFF\xFE<\0\x3D\xD8x\0"s), "byte 4: lone surrogate in UTF-16");
    EXPECT_EQ(faultOf("\xFF\xFE<\0\x00\xDE"s), "byte 4: lone surrogate in UTF-16");
    EXPECT_EQ(faultOf("\xFE\xFF\0<\xD8\x3D"s), "byte 4: lone surrogate in UTF-16");
    EXPECT_EQ(faultOf("\xFF\xFE" + utf16("<a/>") + " "),
              "byte 10: UTF-16 with an odd number of bytes");
    EXPECT_EQ(faultOf("<a>\0</a>"s), "byte 3: a NUL, which is no character of a text");
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
    EXPECT_TRUE(reader.readToEnd().empty());
    EXPECT_EQ(TextReader(new MemoryStream(ByteArray("\xFE\xFF\x20\xAC"))).readToEnd(), L"\x20AC");
    EXPECT_TRUE(TextReader(new MemoryStream).readToEnd().empty());
}

} // namespace
