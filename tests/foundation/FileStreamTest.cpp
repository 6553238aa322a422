#include "foundation/FileStream.h"
#include "foundation/MemoryStream.h"
#include "foundation/Messages.h"
#include "foundation/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <cstdio>

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Core;
using namespace Core::IO;

namespace fs = std::filesystem;

namespace {

void put(Stream& stream, std::string_view bytes) {
    ByteArray buffer(bytes);
    stream.write(&buffer, 0, static_cast<long long>(bytes.size()));
}

void save(const std::wstring& path, std::string_view bytes, bool complete = true) {
    FileStream file(path.c_str(), true, true, false);
    put(file, bytes);
    if (complete)
        file.commit();
}

std::string openFault(const std::wstring& path, bool write) {
    const std::string message = messageOf([&] { FileStream(path.c_str(), write, write, false); });
    return message.substr(message.rfind('/') + 1);
}

/// Shows what `act` raises on standard error and ends the process, a child of the test. Permission
/// bits do not bind the superuser, so the child becomes somebody else first.
template <typename Act>
[[noreturn]] void report(Act act) {
    constexpr uid_t nobody = 65534;
    if (geteuid() == 0 && setuid(nobody) != 0)
        _exit(1);
    std::fputs(messageOf(act).c_str(), stderr);
    _exit(0);
}

/// From now on the system answers each write of `size` bytes with 0. Others pass: the sanitizers
/// write into a pipe to see whether memory can be read.
void letWritesTakeNothing(std::size_t size) {
    static sock_filter steps[]{
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_write, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args[2])),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(size), 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | 0), // an error of number 0 is the answer 0
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog filter{std::size(steps), steps};
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
        prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) != 0)
        _exit(1);
}

/// A stream keeps a position, reads what is there and fills a gap with zeros.
void expectPositions(Stream& stream) {
    put(stream, "abcdef");
    EXPECT_EQ(stream.seek(-4, SeekOrigin::End), 2);
    put(stream, "XY");
    EXPECT_EQ(stream.seek(1, SeekOrigin::Begin), 1);
    ByteArray buffer(std::string_view("--"));
    EXPECT_EQ(stream.read(&buffer, 1, 4), 4);
    EXPECT_EQ(buffer.view(), "-bXYe");
    EXPECT_EQ(stream.read(&buffer, 0, 100), 1);

    EXPECT_EQ(stream.seek(2, SeekOrigin::Current), 8);
    EXPECT_EQ(stream.read(&buffer, 0, 1), 0);
    put(stream, "!");
    stream.seek(6, SeekOrigin::Begin);
    EXPECT_EQ(stream.read(&buffer, 0, 3), 3);
    EXPECT_EQ(buffer.view().substr(0, 3), std::string_view("\0\0!", 3));

    EXPECT_NE(messageOf([&] { stream.seek(-1, SeekOrigin::Begin); }), "");
    EXPECT_NE(messageOf([&] { stream.write(&buffer, 0, 1000); }), "");
    EXPECT_NE(messageOf([&] { stream.read(&buffer, -1, 1); }), "");
    EXPECT_EQ(stream.length(), 9);
}

TEST(Stream, PositionsMeanTheSameInMemoryAndInAFile) {
    MemoryStream memory;
    expectPositions(memory);
    EXPECT_EQ(memory.getBuffer().view(), std::string_view("abXYef\0\0!", 9));
    const TemporaryFolder folder;
    FileStream file(folder.wide("new").c_str(), true, true, false);
    expectPositions(file);
}

TEST(FileStream, TheOldFileStandsUntilTheNewOneIsComplete) {
    const TemporaryFolder folder;
    const std::string name = "\xC3\xA9\xF0\x9F\x98\x80.xml";
    const std::wstring path = folder.put(name, "old");
    for (const bool complete : {false, true}) {
        save(path, "new and longer", complete);
        EXPECT_EQ(folder.bytesOf(name), complete ? "new and longer" : "old");
        EXPECT_EQ(folder.fileCount(), 1);
    }
}

/// Has a file saved by somebody who may write in its folder; the old one stays as it was.
template <typename Save>
void expectSavedInVain(Save save, const char* fault) {
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms(0777));
    const std::wstring path = folder.put("letter.xml", "old");
    fs::permissions(folder.path() / "letter.xml", fs::perms(0666));
    EXPECT_EXIT(report([&] { save(path); }), testing::ExitedWithCode(0), fault);
    EXPECT_EQ(folder.bytesOf("letter.xml"), "old");
    EXPECT_EQ(folder.fileCount(), 1);
}

TEST(FileStream, AFullDiskLosesNothing) {
    const auto saveOnFullDisk = [](const std::wstring& path) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit full{1000, 1000};
        setrlimit(RLIMIT_FSIZE, &full);
        FileStream file(path.c_str(), true, true, false);
        const std::string fault = messageOf([&] { put(file, std::string(5000, 'x')); });
        if (messageOf([&] { file.commit(); }).empty())
            std::fputs("a half-written file appeared; ", stderr);
        throw Exception(fault.c_str());
    };
    expectSavedInVain(saveOnFullDisk, "^/.*/letter.xml: File too large$");
}

TEST(FileStream, AWriteThatTakesNothingEndsTheSaving) {
    const auto saveInVain = [](const std::wstring& path) {
        const std::string content(4099, 'x');
        letWritesTakeNothing(content.size());
        save(path, content);
    };
    expectSavedInVain(saveInVain, "/letter.xml: No space left on");
}

TEST(FileStream, MissingRightsAreToldAndRespected) {
    const TemporaryFolder folder;
    const std::wstring path = folder.put("letter.xml", "old");
    const std::wstring fresh = folder.wide("fresh.xml");
    const auto openToRead = [&] { FileStream(path.c_str(), false, false, false); };
    const testing::ExitedWithCode done(0);
    EXPECT_EXIT(report(openToRead), done, "^$");
    fs::permissions(folder.path(), fs::perms(0555));
    EXPECT_EXIT(report([&] { save(fresh, "new"); }), done,
                "/fresh.xml: no file can be made in its folder: Permission denied$");
    fs::permissions(folder.path(), fs::perms(0777));
    fs::permissions(path, fs::perms(0444));
    EXPECT_EXIT(report([&] { save(path, "new"); }), done, "/letter.xml: Permission denied$");
    fs::permissions(path, fs::perms(0));
    EXPECT_EXIT(report(openToRead), done, "/letter.xml: Permission denied$");

    fs::permissions(path, fs::perms(0644));
    EXPECT_EQ(folder.bytesOf("letter.xml"), "old");
    EXPECT_EQ(folder.fileCount(), 1);
}

TEST(FileStream, WhatCannotBeOpenedIsToldByNameAndReason) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "sub");
    fs::create_symlink("circle", folder.path() / "circle");
    EXPECT_EQ(openFault(folder.wide("absent.xml"), false), "absent.xml: No such file or directory");
    for (const bool write : {false, true})
        EXPECT_EQ(openFault(folder.wide("sub"), write), "sub: Is a directory");
    EXPECT_EQ(openFault(folder.wide("circle"), true), "circle: Too many levels of symbolic links");
    ASSERT_EQ(mkfifo((folder.path() / "pipe").c_str(), 0600), 0);
    for (const bool write : {false, true}) {
        EXPECT_EQ(openFault(folder.wide("pipe"), write), "pipe: not a regular file");
        EXPECT_EQ(openFault(L"/dev/null", write), "null: not a regular file");
    }
    EXPECT_EQ(messageOf([] { FileStream(String(L"a\0b", 3), false, false, false); }),
              "the path of the file holds U+0000");
    EXPECT_EQ(openFault(L"", true), "the path of the file is empty");
}

TEST(FileStream, LinkModeAndOwnerAreKept) {
    const TemporaryFolder folder;
    fs::create_directory(folder.path() / "sub");
    folder.put("sub/real.xml", "old");
    fs::create_symlink("sub/real.xml", folder.path() / "link.xml");
    fs::create_symlink("sub/absent.xml", folder.path() / "dangling.xml");
    const std::string real = (folder.path() / "sub/real.xml").string();
    fs::permissions(real, fs::perms(0640));
    const bool owned = geteuid() == 0 && chown(real.c_str(), 1234, 1235) == 0;

    save(folder.wide("link.xml"), "new");
    save(folder.wide("dangling.xml"), "created");

    EXPECT_TRUE(fs::is_symlink(folder.path() / "link.xml"));
    EXPECT_EQ(folder.bytesOf("sub/real.xml"), "new");
    EXPECT_EQ(folder.bytesOf("sub/absent.xml"), "created");
    struct stat status {};
    ASSERT_EQ(stat(real.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    EXPECT_TRUE(!owned || (status.st_uid == 1234 && status.st_gid == 1235));
}

} // namespace
