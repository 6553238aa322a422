#include "foundation/XmlWriter.h"
#include "foundation/FileStream.h"
#include "foundation/MemoryStream.h"
#include "foundation/Messages.h"
#include "foundation/TemporaryFolder.h"
#include "foundation/XmlReader.h"

#include <gtest/gtest.h>

using namespace Core;
using namespace Core::IO;

using namespace std::string_literals;

namespace {

std::string written(const String& text, Encoding encoding, int mark) {
    SmartPtr<MemoryStream> stream = new MemoryStream;
    XmlWriter(stream.get(), encoding, mark).write(text);
    return std::string(stream->getBuffer().view());
}

TEST(XmlWriter, WritesTheTextAsItStandsWithOrWithoutAMark) {
    const String text = L"<a>\r\n\xE9\U0001F600</a>";
    const std::string bytes = "<a>\r\n\xC3\xA9\xF0\x9F\x98\x80</a>";
    EXPECT_EQ(written(text, Encoding::UTF8, XmlWriter::withoutMark), bytes);
    EXPECT_EQ(written(text, Encoding::UTF8, XmlWriter::withMark), "\xEF\xBB\xBF" + bytes);
    EXPECT_EQ(written(L"<\U0001F600", Encoding::UTF16LE, XmlWriter::withMark),
              "\xFF\xFE<\0\x3D\xD8\0\xDE"s);
    EXPECT_EQ(written(L"<", Encoding::UTF16LE, XmlWriter::withoutMark), "<\0"s);
}

TEST(XmlWriter, WhatItWritesTheReaderReadsAcrossAllChunks) {
    for (std::size_t run : {32766U, 32767U, 32768U, 65532U, 65533U, 65534U, 65535U, 65536U}) {
        const String text{std::wstring_view(std::wstring(run, L'x') + L"\U0001F600\x20AC" +
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
