#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>

#include <pwd.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "unit/desktop/regfile/RegFileStoreFixture.h"

namespace {

using namespace desktop::regfile;
using namespace std::string_literals;
namespace fs = std::filesystem;

/// No file may grow beyond `bytes` while this lives, so a write fails halfway, as on a full disk.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limit{bytes, old_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, oldHandler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit old_{};
    void (*oldHandler_)(int);
};

TEST_F(RegFileStoreTest, MissingFileHasNoKeys) {
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "GMUVerkeer"), "");
    EXPECT_FALSE(Write(store, "GMUVerkeer", "1"));
    machine::RegistryKey handle = 0;
    EXPECT_EQ(store.RegOpenKeyA(machine::HkeyCurrentUser, SettingsPath, handle), machine::RegFileNotFound);
    EXPECT_EQ(FilesInFolder(), 0U);
}

TEST_F(RegFileStoreTest, AWriteIntoAMissingKeyCreatesNothing) {
    const std::string bytes = "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Ondor]\r\n\"a\"=\"1\"\r\n";
    Put(bytes);
    RegFileStore store(file);
    EXPECT_FALSE(Write(store, "GMUFontSize", "12"));
    EXPECT_EQ(Bytes(file), bytes);
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(RegFileStoreTest, ReadsAndWrites) {
    Put(File("\"GMUFontSize\"=\"10\"\r\n"));
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "gmufontsize"), "10");
    EXPECT_TRUE(Write(store, "GMUFontSize", "12"));
    EXPECT_TRUE(Write(store, "PrinterOrientation", "1"));
    EXPECT_EQ(Read(store, "GMUFontSize"), "12");
    EXPECT_EQ(Bytes(file), File("\"GMUFontSize\"=\"12\"\r\n\"PrinterOrientation\"=\"1\"\r\n"));
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(RegFileStoreTest, OtherTypesAreNoText) {
    Put(File("\"a\"=dword:00000001\r\n"));
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "");
    std::uint32_t type = machine::RegNone;
    std::uint32_t size = 4;
    char data[4] = {};
    machine::RegistryKey handle = 0;
    ASSERT_EQ(store.RegOpenKeyA(machine::HkeyCurrentUser, SettingsPath, handle), machine::RegSuccess);
    EXPECT_EQ(store.RegQueryValueExA(handle, "a", type, data, size), machine::RegSuccess);
    EXPECT_EQ(type, machine::RegDword);
    EXPECT_EQ(std::string(data, 4), "\x01\0\0\0"s);
}

TEST_F(RegFileStoreTest, EmptyTextIsOneNul) {
    Put(File("\"a\"=\"x\"\r\n"));
    RegFileStore store(file);
    EXPECT_TRUE(Write(store, "a", ""));
    EXPECT_EQ(Read(store, "a"), "");
    std::uint32_t type = machine::RegNone;
    std::uint32_t size = 0;
    machine::RegistryKey handle = 0;
    ASSERT_EQ(store.RegOpenKeyA(machine::HkeyCurrentUser, SettingsPath, handle), machine::RegSuccess);
    EXPECT_EQ(store.RegQueryValueExA(handle, "a", type, nullptr, size), machine::RegSuccess);
    EXPECT_EQ(size, 1U);
    EXPECT_EQ(Bytes(file), File("\"a\"=\"\"\r\n"));
}

TEST_F(RegFileStoreTest, TextOfAnyKindComesBack) {
    Put(File(""));
    RegFileStore store(file);
    for (const std::string& text :
         {"C:\\map\\\"x\""s, "regel\r\nregel"s, "A\0B"s, "€ Zoë"s, std::string(100'000, 'x')}) {
        EXPECT_TRUE(Write(store, "naam é", text));
        EXPECT_EQ(Read(store, "NAAM É"), text);
    }
}

TEST_F(RegFileStoreTest, TextBeyondTheCodePageReadsAsQuestionMarks) {
    Put("Windows Registry Editor Version 5.00\n[HKEY_CURRENT_USER\\" + SettingsPath + "]\n\"a\"=\"Ω €\"\n");
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "? €");
}

TEST_F(RegFileStoreTest, HandlesOfKeysAndRoots) {
    Put(File("\"a\"=\"1\"\r\n[HKEY_CURRENT_USER\\" + SettingsPath + "\\PrinterSetting]\r\n\"b\"=\"2\"\r\n"));
    RegFileStore store(file);
    machine::RegistryKey current = 0;
    machine::RegistryKey below = 0;
    std::uint32_t type = machine::RegNone;
    std::uint32_t size = 0;
    ASSERT_EQ(store.RegOpenKeyA(machine::HkeyCurrentUser, SettingsPath, current), machine::RegSuccess);
    ASSERT_EQ(store.RegOpenKeyA(current, "PrinterSetting", below), machine::RegSuccess);
    EXPECT_NE(current, below);
    EXPECT_EQ(store.RegQueryValueExA(below, "b", type, nullptr, size), machine::RegSuccess);
    EXPECT_EQ(store.RegQueryValueExA(current, "b", type, nullptr, size), machine::RegFileNotFound);
    EXPECT_EQ(store.RegOpenKeyA(machine::HkeyLocalMachine, SettingsPath, below), machine::RegFileNotFound);
    EXPECT_EQ(store.RegCloseKey(current), machine::RegSuccess);
    EXPECT_EQ(store.RegCloseKey(current), machine::RegInvalidHandle);
    EXPECT_EQ(store.RegQueryValueExA(current, "a", type, nullptr, size), machine::RegInvalidHandle);
    EXPECT_EQ(store.RegSetValueExA(current, "a", machine::RegSz, "2\0"s), machine::RegInvalidHandle);
    EXPECT_EQ(store.RegOpenKeyA(current, "PrinterSetting", below), machine::RegInvalidHandle);
    EXPECT_EQ(store.RegOpenKeyA(machine::HkeyCurrentUser, "", current), machine::RegSuccess);
    EXPECT_EQ(store.RegOpenKeyA(current, "Software", below), machine::RegSuccess);
    EXPECT_EQ(store.RegCloseKey(machine::HkeyCurrentUser), machine::RegSuccess);
    EXPECT_EQ(store.RegCloseKey(0), machine::RegInvalidHandle);
}

TEST_F(RegFileStoreTest, TooSmallABufferTellsTheSize) {
    Put(File("\"a\"=\"abc\"\r\n"));
    RegFileStore store(file);
    machine::RegistryKey handle = 0;
    ASSERT_EQ(store.RegOpenKeyA(machine::HkeyCurrentUser, SettingsPath, handle), machine::RegSuccess);
    std::uint32_t type = machine::RegNone;
    std::uint32_t size = 3;
    char data[3] = {};
    EXPECT_EQ(store.RegQueryValueExA(handle, "a", type, data, size), machine::RegMoreData);
    EXPECT_EQ(size, 4U);
}

TEST_F(RegFileStoreTest, ChangesOfOthersAreSeen) {
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "");
    Put(File("\"a\"=\"1\"\r\n"));
    EXPECT_EQ(Read(store, "a"), "1");
    for (int i = 2; i < 10; ++i) { // of the same size and within one tick of the clock
        Put(File("\"a\"=\"" + std::to_string(i) + "\"\r\n"));
        EXPECT_EQ(Read(store, "a"), std::to_string(i));
    }
    PutInto(folder / "new", File("\"a\"=\"x\"\r\n"));
    fs::rename(folder / "new", file);
    EXPECT_EQ(Read(store, "a"), "x");
    fs::remove(file);
    EXPECT_EQ(Read(store, "a"), "");
}

TEST_F(RegFileStoreTest, ChangeOfAnOldFileIsSeenByItsStamp) {
    Put(File("\"a\"=\"1\"\r\n"));
    fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(2));
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "1");
    Put(File("\"a\"=\"2\"\r\n"));
    fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_EQ(Read(store, "a"), "2");
}

TEST_F(RegFileStoreTest, OpenHandleSeesTheChangeToo) {
    Put(File("\"a\"=\"1\"\r\n"));
    RegFileStore store(file);
    machine::RegistryKey handle = 0;
    ASSERT_EQ(store.RegOpenKeyA(machine::HkeyCurrentUser, SettingsPath, handle), machine::RegSuccess);
    Put(File("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n"));
    std::uint32_t type = machine::RegNone;
    std::uint32_t size = 0;
    EXPECT_EQ(store.RegQueryValueExA(handle, "b", type, nullptr, size), machine::RegSuccess);
    fs::remove(file);
    EXPECT_EQ(store.RegQueryValueExA(handle, "b", type, nullptr, size), machine::RegFileNotFound);
    EXPECT_EQ(store.RegSetValueExA(handle, "b", machine::RegSz, "3\0"s), machine::RegFileNotFound);
    EXPECT_EQ(FilesInFolder(), 0U);
}

TEST_F(RegFileStoreTest, WriteKeepsWhatOthersWroteMeanwhile) {
    Put(File("\"a\"=\"1\"\r\n"));
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "1");
    Put(File("\"a\"=\"2\"\r\n"));
    EXPECT_TRUE(Write(store, "b", "3"));
    EXPECT_EQ(Bytes(file), File("\"a\"=\"2\"\r\n\"b\"=\"3\"\r\n"));
}

TEST_F(RegFileStoreTest, WriteKeepsTheRights) {
    Put(File(""));
    for (const mode_t mode : {0600U, 0644U, 0660U}) {
        ASSERT_EQ(chmod(file.c_str(), mode), 0);
        RegFileStore store(file);
        EXPECT_TRUE(Write(store, "a", std::to_string(mode)));
        EXPECT_EQ(Mode(file), mode);
    }
}

TEST_F(RegFileStoreTest, WriteKeepsTheOwnerWhereItMay) {
    Put(File(""));
    if (geteuid() == 0) {
        ASSERT_EQ(chown(file.c_str(), 1234, 2345), 0);
    }
    struct stat before {};
    struct stat after {};
    ASSERT_EQ(stat(file.c_str(), &before), 0);
    RegFileStore store(file);
    EXPECT_TRUE(Write(store, "a", "1"));
    ASSERT_EQ(stat(file.c_str(), &after), 0);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_NE(after.st_ino, before.st_ino); // replaced, not overwritten
}

TEST_F(RegFileStoreTest, WriteGoesThroughASymbolicLink) {
    fs::create_directory(folder / "elders");
    PutInto(folder / "elders" / "doel.reg", File("\"a\"=\"1\"\r\n"));
    fs::create_symlink("elders/doel.reg", folder / "tussen.reg");
    fs::create_symlink("tussen.reg", file);
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "1");
    EXPECT_TRUE(Write(store, "a", "2"));
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_TRUE(fs::is_symlink(folder / "tussen.reg"));
    EXPECT_EQ(Bytes(folder / "elders" / "doel.reg"), File("\"a\"=\"2\"\r\n"));
    EXPECT_EQ(Read(store, "a"), "2");
}

TEST_F(RegFileStoreTest, RelativePathAndNameOfFullLength) {
    const std::string name(255, 'n');
    PutInto(folder / name, File(""));
    RegFileStore store((folder / "." / name).string());
    EXPECT_TRUE(Write(store, "a", "1"));
    EXPECT_EQ(Read(store, "a"), "1");
}

TEST_F(RegFileStoreTest, FailingWriteLeavesTheOldFileWhole) {
    const std::string before = File("\"a\"=\"1\"\r\n; " + std::string(10'000, 'x') + "\r\n");
    Put(before);
    RegFileStore store(file);
    std::int32_t result = machine::RegSuccess;
    {
        const FileSizeLimit limit(5000);
        result = WriteCall(store, "a", "2\0"s);
    }
    EXPECT_EQ(result, 112);
    EXPECT_EQ(Bytes(file), before);
    EXPECT_EQ(FilesInFolder(), 1U);
    EXPECT_EQ(Read(store, "a"), "1");
    EXPECT_EQ(WriteCall(store, "a", "2\0"s), machine::RegSuccess);
    EXPECT_EQ(Read(store, "a"), "2");
}

TEST_F(RegFileStoreTest, FolderThatTakesNoFilesRefusesTheWrite) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "the administrator may write everywhere";
    }
    Put(File("\"a\"=\"1\"\r\n"));
    fs::permissions(folder, fs::perms::owner_read | fs::perms::owner_exec);
    RegFileStore store(file);
    EXPECT_EQ(WriteCall(store, "a", "2\0"s), machine::RegAccessDenied);
    fs::permissions(folder, fs::perms::owner_all);
    EXPECT_EQ(Bytes(file), File("\"a\"=\"1\"\r\n"));
}

TEST_F(RegFileStoreTest, FileMadeReadOnlyStaysAsItIs) {
    if (geteuid() == 0) {
        GTEST_SKIP() << "the administrator may write everywhere";
    }
    Put(File("\"a\"=\"1\"\r\n"));
    fs::permissions(file, fs::perms::owner_read);
    RegFileStore store(file);
    EXPECT_EQ(WriteCall(store, "a", "2\0"s), machine::RegAccessDenied);
    EXPECT_EQ(Read(store, "a"), "1");
}

TEST_F(RegFileStoreTest, NameThatAFileCannotHoldIsRefused) {
    Put(File(""));
    RegFileStore store(file);
    EXPECT_EQ(WriteCall(store, "a\nb", "1\0"s), 87);
    EXPECT_EQ(Bytes(file), File(""));
}

TEST_F(RegFileStoreTest, NamesEndAtTheirFirstNul) {
    Put(File("\"a\"=\"1\"\r\n"));
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a\0b"s, SettingsPath + "\0x"s), "1");
}

TEST_F(RegFileStoreTest, WhatIsNoFileHasNoKeysAndNeverWaits) {
    fs::create_directory(folder / "map");
    RegFileStore directory(folder / "map");
    EXPECT_EQ(Read(directory, "a"), "");
    ASSERT_EQ(mkfifo((folder / "pijp").c_str(), 0600), 0);
    RegFileStore pipe(folder / "pijp");
    EXPECT_EQ(Read(pipe, "a"), "");
    RegFileStore device("/dev/zero");
    EXPECT_EQ(Read(device, "a"), "");
    RegFileStore nowhere("");
    EXPECT_EQ(Read(nowhere, "a"), "");
    fs::create_symlink("zichzelf", folder / "zichzelf");
    RegFileStore loop(folder / "zichzelf");
    EXPECT_EQ(Read(loop, "a"), "");
}

TEST_F(RegFileStoreTest, FileBeyondAnySettingsIsNotRead) {
    Put(File("\"a\"=\"1\"\r\n"));
    fs::resize_file(file, 600U << 20U); // sparse: takes no room on the disk
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "");
}

TEST_F(RegFileStoreTest, DefaultPathFollowsTheUsersConfiguration) {
    setenv("XDG_CONFIG_HOME", "/cfg", 1);
    setenv("HOME", "/home/piet", 1);
    EXPECT_EQ(DefaultSettingsPath(), "/cfg/tarvik/settings.reg");
    setenv("XDG_CONFIG_HOME", "relatief", 1); // not allowed by the convention, so it counts as not set
    EXPECT_EQ(DefaultSettingsPath(), "/home/piet/.config/tarvik/settings.reg");
    unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(DefaultSettingsPath(), "/home/piet/.config/tarvik/settings.reg");
}

TEST_F(RegFileStoreTest, WithoutAHomeTheDefaultPathIsInTheOneThatTheSystemKnows) {
    const passwd* const user = getpwuid(getuid());
    ASSERT_NE(user, nullptr);
    unsetenv("XDG_CONFIG_HOME");
    unsetenv("HOME");
    EXPECT_EQ(DefaultSettingsPath(), std::string(user->pw_dir) + "/.config/tarvik/settings.reg");
}

} // namespace
