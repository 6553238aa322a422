#include "foundation/XmlWriter.h"
#include "foundation/FileStream.h"
#include "foundation/MemoryStream.h"
#include "foundation/Messages.h"
#include "foundation/TemporaryFolder.h"
#include "foundation/XmlReader.h"

#include <gtest/gtest.h>

using namespace Core;
using namespace Core::IO;

namespace {

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
