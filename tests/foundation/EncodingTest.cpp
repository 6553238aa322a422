#include "foundation/Encoder.h"
#include "foundation/FileStream.h"
#include "foundation/MemoryStream.h"
#include "foundation/Messages.h"
#include "foundation/TemporaryFolder.h"
#include "foundation/Wide.h"
#include "foundation/XmlReader.h"
#include "foundation/XmlWriter.h"

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

TEST(XmlReader, AByteOrderMarkWinsOverTheDeclaration) {
    const std::string lie = declaring("ISO-8859-1", "x");
    EXPECT_EQ(read("\xEF\xBB\xBF" + lie + "\xC3\xA9"), wide(lie.c_str()) + L"\xE9");
    EXPECT_EQ(read("\xFF\xFE" + utf16(lie) + "\x3D\xD8\x00\xDE"s),
              wide(lie.c_str()) + L"\xD83D\xDE00");
    EXPECT_EQ(read("\xFE\xFF" + utf16(lie, true)), wide(lie.c_str()));
}

TEST(XmlReader, Utf16IsKnownWithoutAMark) {
    for (const bool bigEndian : {false, true})
        for (const std::string& text :
             {declaring("UTF-16", "x"), declaring(bigEndian ? "UTF-16BE" : "utf-16le", "x"),
              "<a/>"s})
            EXPECT_EQ(read(utf16(text, bigEndian)), wide(text.c_str()));
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

std::string utf8(const String& text) {
    return std::string(Encoder::convertStringToUTF8(text).view());
}

std::string decoderRefusal(std::string_view bytes) {
    return messageOf([&] { Encoder::convertUTF8ToString(bytes); });
}

TEST(Encoder, EveryCharacterIsWhatItsBytesSay) {
    EXPECT_EQ(utf8(L"\x7F\x80\x7FF\x800\xD7FF\xE000\xFFFF\U00010000\U0010FFFF"),
              "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"
              "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF");

    std::wstring all(40, L'\x80');
    for (wchar_t ch = 0; ch <= 0x10FFFF; ++ch) {
        if (ch < 0xD800 || ch > 0xDFFF)
            all += ch;
    }
    const String text{std::wstring_view(all)};
    EXPECT_EQ(text.length(), 40 + 0x10000 - 0x800 + 2 * 0x100000);
    EXPECT_TRUE(Encoder::convertUTF8ToString(utf8(text)) == text);
}

TEST(Encoder, BytesThatAreNoUtf8AreRefusedWithTheirPlace) {
    EXPECT_EQ(decoderRefusal("abc\x80"), "byte 3: stray UTF-8 continuation byte");
    EXPECT_EQ(decoderRefusal("\xC3"), "byte 0: truncated UTF-8 sequence");
    EXPECT_EQ(decoderRefusal("0123456789\xE2\x82z"), "byte 10: truncated UTF-8 sequence");
    EXPECT_EQ(decoderRefusal("a\xC0\xAF"), "byte 1: overlong UTF-8 sequence");
    EXPECT_EQ(decoderRefusal("\xED\xBF\xBF"), "byte 0: UTF-8 encoded surrogate");
    EXPECT_EQ(decoderRefusal("a\xF0\x8F\xBF\xBF"), "byte 1: overlong UTF-8 sequence");
    EXPECT_EQ(decoderRefusal("\xED\xA0\x80"), "byte 0: UTF-8 encoded surrogate");
    EXPECT_EQ(decoderRefusal("\xF4\x90\x80\x80"), "byte 0: UTF-8 sequence beyond U+10FFFF");
    EXPECT_EQ(decoderRefusal("\xF8\x88\x80\x80\x80"), "byte 0: UTF-8 sequence beyond U+10FFFF");
    EXPECT_EQ(decoderRefusal("\xFF"), "byte 0: byte that UTF-8 never uses");
}

TEST(Encoder, ALoneSurrogateIsShownButNeverWritten) {
    const wchar_t high = 0xD83D;
    const wchar_t low = 0xDE00;
    const String reversed{std::wstring{L'a', low, high}};
    const String cut{std::wstring{L'a', high, low, high}};
    EXPECT_EQ(messageOf([&] { utf8(reversed); }), "code unit 1: lone surrogate");
    EXPECT_EQ(messageOf([&] { utf8(cut); }), "code unit 3: lone surrogate");
    EXPECT_EQ(Encoder::toDisplayText(reversed), "a\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(Encoder::toDisplayText(L"\U0001F600"), "\xF0\x9F\x98\x80");
}

TEST(XmlWriter, WhatItWritesTheReaderReadsAcrossAllChunks) {
    for (std::size_t run : {32766U, 32767U, 32768U, 65532U, 65533U, 65534U, 65535U, 65536U}) {
        const String text{std::wstring_view(std::wstring(run, L'x') + L"\U0001F600\r\n\x20AC" +
                                            std::wstring(run, L'\xE9'))};
        for (Encoding encoding : {Encoding::UTF8, Encoding::UTF16LE}) {
            SmartPtr<MemoryStream> stream = new MemoryStream;
            XmlWriter(stream.get(), encoding, XmlWriter::withMark).write(text);
            stream->seek(0, SeekOrigin::Begin);
            EXPECT_TRUE(XmlReader(stream.get()).readToEnd() == text) << run;
        }
    }
}

TEST(XmlWriter, ALoneSurrogateIsRefusedAndTheOldFileStays) {
    const TemporaryFolder folder;
    const std::wstring path = folder.put("letter.xml", "old");
    const String text = String(L'x', 40000) + String(L'\xD83D', 1) + L"z";
    {
        SmartPtr<FileStream> file = new FileStream(path.c_str(), true, true, false);
        XmlWriter writer(file.get(), Encoding::UTF8, XmlWriter::withoutMark);
        EXPECT_TRUE(messageOf([&] {
                        writer.write(text);
                    }).ends_with("/letter.xml: code unit 40000: lone surrogate"));
        EXPECT_EQ(file->length(), 0);
    }
    EXPECT_EQ(folder.bytesOf("letter.xml"), "old");
    EXPECT_EQ(folder.fileCount(), 1);
}

} // namespace
