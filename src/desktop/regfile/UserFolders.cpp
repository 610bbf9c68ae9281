#include "desktop/regfile/UserFolders.h"

#include <cstdlib>

#include <pwd.h>
#include <unistd.h>

namespace desktop::regfile {
namespace {

std::string FolderFrom(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && value[0] == '/' ? value : std::string{};
}

} // namespace

std::string HomeFolder() {
    std::string home = FolderFrom("HOME");
    if (home.empty()) {
        const passwd* const user = getpwuid(getuid());
        home = user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
    }
    return home;
}

std::string UserFolder(const char* variable, const std::string& belowHome) {
    std::string folder = FolderFrom(variable);
    if (folder.empty()) {
        folder = HomeFolder();
        folder += folder.empty() ? "" : belowHome;
    }
    return folder;
}

} // namespace desktop::regfile
