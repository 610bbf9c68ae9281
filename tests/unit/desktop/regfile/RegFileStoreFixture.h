#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "desktop/regfile/RegFileStore.h"
#include "machine/modRegistry.h"

namespace desktop::regfile {

inline const std::string SettingsPath = "Software\\Ondor\\Tarvik\\CurrentVersion";

/// A settings file of these lines.
inline std::string File(const std::string& lines) {
    return "REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\" + SettingsPath + "]\r\n" + lines;
}

/// A settings file in a folder of its own.
class RegFileStoreTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string folderName = (std::filesystem::temp_directory_path() / "regfilestore-XXXXXX").string();
        ASSERT_NE(mkdtemp(folderName.data()), nullptr);
        folder = folderName;
        file = folder / "settings.reg";
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    void Put(const std::string& bytes) const { PutInto(file, bytes); }
    static void PutInto(const std::filesystem::path& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static std::string Bytes(const std::filesystem::path& path) {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::size_t FilesInFolder() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder),
                                                      std::filesystem::directory_iterator()));
    }
    static mode_t Mode(const std::filesystem::path& path) {
        struct stat status {};
        EXPECT_EQ(stat(path.c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    std::filesystem::path folder;
    std::filesystem::path file;
};

inline std::string Read(RegFileStore& store, const std::string& name,
                        const std::string& path = SettingsPath) {
    return machine::modRegistry(store).GetRegistryValue(machine::HkeyCurrentUser, path, name);
}

inline bool Write(RegFileStore& store, const std::string& name, const std::string& text) {
    return machine::modRegistry(store).SetRegistryValue(machine::HkeyCurrentUser, SettingsPath, name, text);
}

inline std::int32_t WriteCall(RegFileStore& store, const std::string& name, std::string_view bytes) {
    machine::RegistryKey handle = 0;
    EXPECT_EQ(store.RegOpenKeyA(machine::HkeyCurrentUser, SettingsPath, handle), machine::RegSuccess);
    const std::int32_t result = store.RegSetValueExA(handle, name, machine::RegSz, bytes);
    EXPECT_EQ(store.RegCloseKey(handle), machine::RegSuccess);
    return result;
}

} // namespace desktop::regfile
