#include "desktop/regfile/UserFolders.h"

#include <cstdlib>
#include <map>
#include <optional>

#include <gtest/gtest.h>
#include <pwd.h>

namespace {

/// What the machine knows of a user.
enum class Knowledge { Real, Nothing, NoHome, Home };
Knowledge knowledge = Knowledge::Real;

} // namespace

// The linker sends all calls of getpwuid() here.
extern "C" passwd* __real_getpwuid(uid_t user);
extern "C" passwd* __wrap_getpwuid(uid_t user) {
    static char home[] = "/home/known";
    static passwd entry{};
    entry.pw_dir = knowledge == Knowledge::Home ? home : nullptr;
    if (knowledge == Knowledge::Real) {
        return __real_getpwuid(user);
    }
    return knowledge == Knowledge::Nothing ? nullptr : &entry;
}

namespace desktop::regfile {
namespace {

class UserFoldersTest : public testing::Test {
  protected:
    UserFoldersTest() {
        for (const char* name : {"HOME", "XDG_CONFIG_HOME"}) {
            const char* const value = std::getenv(name);
            before_[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
            unsetenv(name);
        }
        knowledge = Knowledge::Home;
    }
    ~UserFoldersTest() override {
        knowledge = Knowledge::Real;
        for (const auto& [name, value] : before_) {
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
        }
    }

    static std::string ConfigFolder() { return UserFolder("XDG_CONFIG_HOME", "/.config"); }

  private:
    std::map<std::string, std::optional<std::string>> before_;
};

TEST_F(UserFoldersTest, TheHomeIsThatOfTheEnvironment) {
    setenv("HOME", "/home/piet", 1);
    EXPECT_EQ(HomeFolder(), "/home/piet");
    EXPECT_EQ(ConfigFolder(), "/home/piet/.config");
}

TEST_F(UserFoldersTest, WithoutOneItIsThatOfTheMachine) {
    for (const char* none : {"", "relatief"}) {
        setenv("HOME", none, 1);
        EXPECT_EQ(HomeFolder(), "/home/known");
        EXPECT_EQ(ConfigFolder(), "/home/known/.config");
    }
}

TEST_F(UserFoldersTest, AVariableGoesBeforeTheHome) {
    setenv("XDG_CONFIG_HOME", "/instellingen", 1);
    EXPECT_EQ(ConfigFolder(), "/instellingen");
    for (const char* none : {"", "relatief"}) {
        setenv("XDG_CONFIG_HOME", none, 1);
        EXPECT_EQ(ConfigFolder(), "/home/known/.config");
    }
}

TEST_F(UserFoldersTest, AUserWithoutAHomeHasNoFolder) {
    knowledge = Knowledge::NoHome;
    EXPECT_EQ(HomeFolder(), "");
    EXPECT_EQ(ConfigFolder(), "");
    knowledge = Knowledge::Nothing;
    EXPECT_EQ(HomeFolder(), "");
    EXPECT_EQ(ConfigFolder(), "");
    setenv("XDG_CONFIG_HOME", "/instellingen", 1);
    EXPECT_EQ(ConfigFolder(), "/instellingen");
}

} // namespace
} // namespace desktop::regfile
