#include "foundation/Encoder.h"
#include "foundation/Messages.h"
#include "foundation/TemporaryFolder.h"
#include "support/Documents.h"
#include "support/MarkedDocument.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

/// What a document is in UTF-8 with "\n" at its line ends.
std::string asUtf8(const fs::path& path) {
    Core::String text = textOf(path);
    text.replaceAll(L"\r\n", L"\n");
    return std::string(Core::Encoder::convertStringToUTF8(text).view());
}

class AnyDocument : public testing::TestWithParam<fs::path> {};

TEST_P(AnyDocument, ComesBackAsItWas) {
    const TemporaryFolder folder;
    MarkedDocument buffer;
    buffer->setContentFromFile(Core::Encoder::convertUTF8ToString(GetParam().string()));
    buffer->saveToFile(folder.wide("utf8").c_str(), DocumentEncoding::Utf8);
    EXPECT_TRUE(folder.bytesOf("utf8") == asUtf8(GetParam()));
    buffer->saveToFile(folder.wide("utf16").c_str(), DocumentEncoding::Utf16WithMark);
    MarkedDocument again;
    again->setContentFromFile(folder.wide("utf16").c_str());
    EXPECT_TRUE(again.content() == buffer.content());
    EXPECT_FALSE(buffer->canUndo() || buffer->canRedo());
}

INSTANTIATE_TEST_SUITE_P(CorpusAndSamples, AnyDocument, testing::ValuesIn(corpusAndSamples()),
                         nameOfDocument);

TEST(Saving, KeepsTheThreeEncodingsApart) {
    const TemporaryFolder folder;
    MarkedDocument buffer;
    buffer->setContent(L"<a>\xE4\xD83D\xDE00</a>\r\n\r", true);
    buffer->saveToFile(folder.wide("1").c_str(), DocumentEncoding::Utf8);
    EXPECT_EQ(folder.bytesOf("1"), "<a>\xC3\xA4\xF0\x9F\x98\x80</a>\n\r");
    buffer->saveToFile(folder.wide("2").c_str(), DocumentEncoding::Utf8WithMark);
    EXPECT_EQ(folder.bytesOf("2"), "\xEF\xBB\xBF<a>\xC3\xA4\xF0\x9F\x98\x80</a>\n\r");
    buffer->saveToFile(folder.wide("3").c_str(), DocumentEncoding::Utf16WithMark);
    EXPECT_EQ(folder.bytesOf("3"),
              std::string("\xFF\xFE<\0a\0>\0\xE4\0\x3D\xD8\x00\xDE<\0/\0a\0>\0\n\0\r\0", 26));
    for (const int other : {0, 4, -1})
        buffer->saveToFile(folder.wide("4").c_str(), static_cast<DocumentEncoding>(other));
    EXPECT_EQ(folder.fileCount(), 3);
}

TEST(Loading, OfABadFileChangesNothing) {
    const TemporaryFolder folder;
    folder.put("empty", "");
    folder.put("utf8", "<a>\xC3(</a>");
    folder.put("unknown", "<?xml version=\"1.0\" encoding=\"no-such\"?><a/>");
    for (const char* name : {"missing", "", "empty", "utf8", "unknown"}) {
        MarkedDocument buffer(L"<B>a^b|c</B>");
        buffer.insertRecorded(buffer.find(L"c</"), L"X");
        const std::wstring before = buffer.marked();
        buffer.heard();
        const IEditableBufferMonitor* const monitor = buffer->getMonitor();
        const std::string message =
            messageOf([&] { buffer->setContentFromFile(folder.wide(name).c_str()); });
        EXPECT_NE(message.find((folder.path() / name).string()), std::string::npos) << message;
        EXPECT_EQ(buffer.marked(), before) << name;
        EXPECT_TRUE(buffer.heard().empty() && buffer->getMonitor() == monitor) << name;
        buffer->undo();
        EXPECT_EQ(buffer.marked(), L"<B>a^b|c</B>") << name;
    }
}

} // namespace
