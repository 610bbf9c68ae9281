#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Whole files on a POSIX machine, for data that must not be lost halfway.
namespace platform {

/// What tells one state of a file from another without reading it.
struct FileStamp {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;     // bytes
    std::int64_t modified = 0; // nanoseconds since 1970

    bool operator==(const FileStamp&) const = default;
};

/// Nothing if there is no such file, or if it is something else than a file (a folder, a pipe).
std::optional<FileStamp> StampOf(const std::string& path);

struct FileContent {
    std::string bytes;
    FileStamp stamp;
};

/// The file's bytes and its stamp before they were read. Nothing if it cannot be read, is no file, is larger
/// than `limit` bytes or changed while it was read. Never waits for another process.
std::optional<FileContent> ReadWholeFile(const std::string& path, std::size_t limit);

/// Puts new bytes in the place of an existing file, whole or not at all: they are on the disk before the
/// file's name passes to them. A symbolic link stays and its target changes; the file's rights stay, and its
/// owner where the machine allows it. Returns 0 or errno, the old file being untouched then: EAGAIN if it is
/// no longer in the state `before`, because another program has written it meanwhile.
int ReplaceFile(const std::string& path, std::string_view bytes, const FileStamp& before);

} // namespace platform
