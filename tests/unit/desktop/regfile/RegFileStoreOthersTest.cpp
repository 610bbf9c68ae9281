// A settings file that other programs write as well, and one that cannot be read.
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "unit/desktop/regfile/RegFileStoreFixture.h"

namespace {

using namespace desktop::regfile;
using namespace std::chrono_literals;
namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// A name that the program gives to bytes on their way into the file's place.
constexpr const char* Leftover = ".settings-abcdefghij0123450123";

class RegFileStoreOthersTest : public RegFileStoreTest {
  protected:
    /// The file as another program leaves it that rewrites it in its place.
    void WriteInPlace(const std::string& bytes) const {
        const int descriptor = open(file.c_str(), O_WRONLY | O_TRUNC | O_CLOEXEC);
        ASSERT_GE(descriptor, 0);
        ASSERT_EQ(write(descriptor, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        close(descriptor);
    }
    void SetTime(std::chrono::system_clock::time_point time) const {
        const auto seconds = std::chrono::system_clock::to_time_t(time);
        const timespec times[2] = {{seconds, 0}, {seconds, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
    }
};

TEST_F(RegFileStoreOthersTest, WhatWasReadHoldsWhileTheFileIsEmpty) {
    Put(File("\"a\"=\"1\"\r\n"));
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "1");
    WriteInPlace("");
    EXPECT_EQ(Read(store, "a"), "1");
    EXPECT_EQ(Read(store, "a"), "1");
    WriteInPlace(File("\"a\"=\"2\"\r\n"));
    EXPECT_EQ(Read(store, "a"), "2");
}

TEST_F(RegFileStoreOthersTest, WhatWasReadHoldsWhileTheFileIsCutOff) {
    const std::string before = File("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n");
    const std::string after = File("\"a\"=\"3\"\r\n\"b\"=\"4\"\r\n\"c\"=\"5\"\r\n");
    Put(before);
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "b"), "2");
    for (const std::size_t size : {after.size() - 12, after.size() - 3, after.size() - 22, std::size_t{12}}) {
        WriteInPlace(after.substr(0, size));
        EXPECT_EQ(Read(store, "a"), "1") << after.substr(0, size);
        EXPECT_EQ(Read(store, "b"), "2") << after.substr(0, size);
    }
    WriteInPlace(after);
    EXPECT_EQ(Read(store, "a"), "3");
    EXPECT_EQ(Read(store, "c"), "5");
}

TEST_F(RegFileStoreOthersTest, AFileThatIsShorterAndWholeIsRead) {
    for (const std::string end : {"\"a\"=\"2\"\r\n", "\"a\"=\"2\"", "\"a\"=\"2\" ; kort", "\"a\"=\"2\"\n[x]",
                                  "\"a\"=\"2\"\n\"c\"=dword:00000001", "\"a\"=\"2\"\n\"c\"=-"}) {
        Put(File("\"a\"=\"1\"\r\n\"b\"=\"langer dan de andere\"\r\n"));
        RegFileStore store(file);
        EXPECT_EQ(Read(store, "a"), "1");
        WriteInPlace(File(end));
        EXPECT_EQ(Read(store, "b"), "langer dan de andere") << "more may come";
        SetTime(std::chrono::system_clock::now() - 1s);
        EXPECT_EQ(Read(store, "a"), "2") << end;
        EXPECT_EQ(Read(store, "b"), "") << end;
    }
}

TEST_F(RegFileStoreOthersTest, AFileThatNobodyCompletesIsReadAsItIs) {
    Put(File("\"a\"=\"1\"\r\n\"b\"=\"2"));
    SetTime(std::chrono::system_clock::now() - 1h);
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "1");
    EXPECT_EQ(Read(store, "b"), "");
    EXPECT_TRUE(Write(store, "a", "3"));
}

TEST_F(RegFileStoreOthersTest, AStartWaitsForAFileThatIsBeingWritten) {
    Put("");
    std::thread other([this] {
        std::this_thread::sleep_for(20ms);
        WriteInPlace(File("\"a\"=\"1\"\r\n"));
    });
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "1");
    other.join();
}

TEST_F(RegFileStoreOthersTest, NothingIsPutInThePlaceOfAFileThatIsBeingWritten) {
    Put(File("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n"));
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "1");
    const std::string half = File("\"a\"=\"1\"\r\n\"b");
    for (const std::string& part : {std::string(), half}) {
        WriteInPlace(part);
        EXPECT_FALSE(Write(store, "a", "3"));
        EXPECT_EQ(Bytes(file), part);
        RegFileStore another(file);
        EXPECT_FALSE(Write(another, "a", "3"));
        EXPECT_EQ(Bytes(file), part);
    }
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(RegFileStoreOthersTest, OfTwoProgramsNeitherWritesOverTheOthersValue) {
    constexpr int values = 150;
    Put(File(""));
    std::vector<pid_t> writers;
    for (const char* name : {"een", "twee"}) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            RegFileStore store(file);
            int refused = 0;
            for (int i = 0; i < values; ++i) {
                refused += Write(store, name + std::to_string(i), "x") ? 0 : 1;
            }
            _exit(refused == 0 ? 0 : 1);
        }
        writers.push_back(child);
    }
    for (const pid_t writer : writers) {
        int status = 0;
        ASSERT_EQ(waitpid(writer, &status, 0), writer);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "a value was refused";
    }
    RegFileStore store(file);
    for (int i = 0; i < values; ++i) {
        EXPECT_EQ(Read(store, "een" + std::to_string(i)), "x") << i;
        EXPECT_EQ(Read(store, "twee" + std::to_string(i)), "x") << i;
    }
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(RegFileStoreOthersTest, ALockThatIsNotLetGoRefusesTheWrite) {
    Put(File("\"a\"=\"1\"\r\n"));
    const int lock = open((folder / ".settings-lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    RegFileStore store(file);
    EXPECT_EQ(WriteCall(store, "a", std::string("2\0", 2)), 33);
    EXPECT_EQ(Read(store, "a"), "1");
    close(lock);
    EXPECT_EQ(WriteCall(store, "a", std::string("2\0", 2)), 0);
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(RegFileStoreOthersTest, WhatAKilledProgramLeftIsClearedAtTheNextStart) {
    Put(File("\"a\"=\"1\"\r\n"));
    PutInto(folder / Leftover, "half");
    PutInto(folder / ".settings-lock", "");
    const RegFileStore store(file);
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(RegFileStoreOthersTest, WhatTheUserHasBesideTheSettingsStays) {
    Put(File("\"a\"=\"1\"\r\n"));
    const std::string someones = Leftover;
    for (const std::string& name :
         {std::string("settings-van-mij"), std::string(".settings-backup"), std::string(".settings-2026.reg"),
          std::string(".settings-lock-oud"), someones + "a", someones.substr(0, someones.size() - 1) + "9"}) {
        PutInto(folder / name, "x");
        const RegFileStore store(file);
        EXPECT_TRUE(fs::exists(folder / name)) << name;
    }
}

TEST_F(RegFileStoreOthersTest, WhatAProgramAtWorkNeedsIsLeft) {
    Put(File("\"a\"=\"1\"\r\n"));
    PutInto(folder / Leftover, "half");
    const int lock = open((folder / ".settings-lock").c_str(), O_CREAT | O_RDWR | O_CLOEXEC, 0600);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    const RegFileStore store(file);
    EXPECT_TRUE(fs::exists(folder / Leftover));
    close(lock);
}

// Its stamp put back, a change that nobody could see: what answers has not been read again.
TEST_F(RegFileStoreOthersTest, AFileFromTheFutureIsNotReadAtEachQuestion) {
    const auto future = std::chrono::system_clock::now() + 24h;
    Put(File("\"a\"=\"1\"\r\n"));
    SetTime(future);
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "1");
    std::this_thread::sleep_for(25ms);
    EXPECT_EQ(Read(store, "a"), "1");
    WriteInPlace(File("\"a\"=\"2\"\r\n"));
    SetTime(future);
    EXPECT_EQ(Read(store, "a"), "1");
    WriteInPlace(File("\"a\"=\"3\"\r\n"));
    EXPECT_EQ(Read(store, "a"), "3");
}

TEST_F(RegFileStoreOthersTest, AFileThatCannotBeReadIsToldOnceAndWhatWasReadHolds) {
    std::vector<std::string> told;
    RegFileStore store(file, {}, [&told](const std::string& text) { told.push_back(text); });
    EXPECT_EQ(Read(store, "a"), "");
    EXPECT_THAT(told, IsEmpty()) << "there is none";
    fs::create_directory(file);
    EXPECT_EQ(Read(store, "a"), "");
    EXPECT_EQ(Read(store, "a"), "");
    const std::string first =
        "De instellingen van Tarvik kunnen niet worden gelezen.\n" + file.string() + "\nDit is geen bestand.";
    EXPECT_THAT(told, ElementsAre(first));
    fs::remove(file);
    Put(File("\"a\"=\"1\"\r\n"));
    EXPECT_EQ(Read(store, "a"), "1");
    fs::resize_file(file, (512U << 20U) + 1);
    EXPECT_EQ(Read(store, "a"), "1");
    EXPECT_EQ(Read(store, "a"), "1");
    EXPECT_THAT(
        told, ElementsAre(first, "De instellingen van Tarvik kunnen niet worden gelezen.\n" + file.string() +
                                     "\nHet bestand is te groot.\nWat eerder is gelezen, blijft gelden."));
}

TEST_F(RegFileStoreOthersTest, AFileThatNobodyCompletesIsToldAndWhatWasReadHolds) {
    std::vector<std::string> told;
    const std::string message = "De instellingen van Tarvik kunnen niet worden gelezen.\n" + file.string() +
                                "\nHet bestand is leeg of afgebroken.\nWat eerder is gelezen, blijft gelden.";
    Put(File("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n"));
    RegFileStore store(file, {}, [&told](const std::string& text) { told.push_back(text); });
    EXPECT_EQ(Read(store, "a"), "1");
    for (const std::string& part : {std::string(), File("\"a\"=\"3\"\r\n\"b\"=\"")}) {
        told.clear();
        WriteInPlace(part);
        EXPECT_EQ(Read(store, "a"), "1");
        EXPECT_THAT(told, IsEmpty()) << "more may come";
        SetTime(std::chrono::system_clock::now() - 5s);
        EXPECT_EQ(Read(store, "a"), "1");
        EXPECT_EQ(Read(store, "b"), "2");
        EXPECT_THAT(told, ElementsAre(message));
        WriteInPlace(File("\"a\"=\"5\"\r\n\"b\"=\"6\"\r\n"));
        EXPECT_EQ(Read(store, "a"), "5");
        WriteInPlace(File("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n"));
        EXPECT_EQ(Read(store, "a"), "1");
    }
}

// Its bytes completed and its stamp put back, a change that nobody could see: what answers has not been read
// again.
TEST_F(RegFileStoreOthersTest, AFileThatNobodyCompletesIsNotReadAtEachQuestion) {
    const auto past = std::chrono::system_clock::now() - 5s;
    const std::string whole = File("\"a\"=\"2\"\r\n");
    Put(File("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n"));
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "1");
    WriteInPlace(whole.substr(0, whole.size() - 3) + "  x");
    SetTime(past);
    EXPECT_EQ(Read(store, "a"), "1");
    WriteInPlace(whole);
    SetTime(past);
    EXPECT_EQ(Read(store, "a"), "1");
    SetTime(past + 1s);
    EXPECT_EQ(Read(store, "a"), "2");
}

// What is told waits for the user, and other programs must not.
TEST_F(RegFileStoreOthersTest, NothingIsLockedWhileAFailureIsTold) {
    bool isTold = false;
    Put(File("\"a\"=\"1\"\r\n"));
    RegFileStore store(file, {}, [&](const std::string&) {
        isTold = true;
        EXPECT_FALSE(fs::exists(folder / ".settings-lock"));
    });
    machine::RegistryKey key = 0;
    ASSERT_EQ(store.RegOpenKeyA(machine::HkeyCurrentUser, SettingsPath, key), machine::RegSuccess);
    fs::remove(file);
    fs::create_directory(file);
    EXPECT_NE(store.RegSetValueExA(key, "a", machine::RegSz, std::string_view("2\0", 2)),
              machine::RegSuccess);
    EXPECT_TRUE(isTold);
}

TEST_F(RegFileStoreOthersTest, WhatWasWaitedForInVainCanBeWrittenOnceItIsBelieved) {
    Put(File("\"a\"=\"1\"\r\n\"b\"=\"2"));
    const auto time = std::chrono::system_clock::now() - 1700ms; // it is believed at two seconds
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const timespec stamp{std::chrono::system_clock::to_time_t(seconds),
                         std::chrono::nanoseconds(time - seconds).count()};
    const timespec times[2] = {stamp, stamp};
    ASSERT_EQ(utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "a"), "1");
    std::this_thread::sleep_until(time + 2010ms);
    EXPECT_TRUE(Write(store, "a", "3"));
}

} // namespace
