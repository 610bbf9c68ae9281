#include "fault/LogFile.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "fault/Fault.h"

namespace fault {

namespace {

constexpr const char* Name = "printrap.log";

Fault* current = nullptr;
const std::FILE* log = nullptr;

} // namespace

LogFile::LogFile(Fault& fault) {
    std::filesystem::remove(Name);
    current = &fault;
}

LogFile::~LogFile() {
    current = nullptr;
}

std::vector<std::string> LogFile::Lines() {
    std::ifstream file(Name, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(file.eof() ? line : line + '\n');
    }
    return lines;
}

} // namespace fault

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names (--wrap)
extern "C" {

std::FILE* __real_fopen(const char* path, const char* mode);
std::size_t __real_fwrite(const void* data, std::size_t size, std::size_t count, std::FILE* file);

std::FILE* __wrap_fopen(const char* path, const char* mode) {
    if (std::strcmp(path, fault::Name) != 0) {
        return __real_fopen(path, mode);
    }
    if (fault::current != nullptr && fault::current->Strikes(fault::CallOpenFile)) {
        errno = EACCES;
        return nullptr;
    }
    std::FILE* file = __real_fopen(path, mode);
    fault::log = file;
    return file;
}

std::size_t __wrap_fwrite(const void* data, std::size_t size, std::size_t count, std::FILE* file) {
    if (file == fault::log && fault::current != nullptr && fault::current->Strikes(fault::CallWriteFile)) {
        errno = ENOSPC;
        return 0;
    }
    return __real_fwrite(data, size, count, file);
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
