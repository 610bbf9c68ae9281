#include "desktop/cups/CupsJob.h"

#include <cstdlib>
#include <optional>

#include <gtest/gtest.h>
#include <pwd.h>

#include "base/RuntimeError.h"

namespace {
bool isUserUnknown = false;
}

// The linker sends all calls of getpwuid() here.
extern "C" passwd* __real_getpwuid(uid_t user);
extern "C" passwd* __wrap_getpwuid(uid_t user) {
    return isUserUnknown ? nullptr : __real_getpwuid(user);
}

namespace desktop::cups {
namespace {

/// A variable of the environment, as it was before when this goes.
class Variable {
  public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* const old = std::getenv(name)) {
            old_ = old;
        }
        setenv(name, value, 1);
    }
    ~Variable() {
        if (old_) {
            setenv(name_, old_->c_str(), 1);
        } else {
            unsetenv(name_);
        }
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    const char* name_;
    std::optional<std::string> old_;
};

TEST(SpoolFolderTest, LiesInTheUsersCache) {
    const Variable home("HOME", "/home/piet");
    {
        const Variable cache("XDG_CACHE_HOME", "/cache");
        EXPECT_EQ(SpoolFolder(), "/cache/drukkeuring/spool");
    }
    for (const char* none : {"", "relatief"}) { // the convention allows whole paths alone
        const Variable cache("XDG_CACHE_HOME", none);
        EXPECT_EQ(SpoolFolder(), "/home/piet/.cache/drukkeuring/spool");
    }
}

TEST(SpoolFolderTest, IsNowhereWithoutAHome) {
    const Variable home("HOME", "");
    const Variable cache("XDG_CACHE_HOME", "");
    isUserUnknown = true;
    const std::string folder = SpoolFolder();
    isUserUnknown = false;
    EXPECT_EQ(folder, "");
    EXPECT_THROW(SpoolFile{folder}, base::RuntimeError);
}

} // namespace
} // namespace desktop::cups
