#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

struct stat;

/// Whole files on a POSIX machine, for data that must not be lost halfway.
namespace desktop::regfile {

/// What tells one state of a file from another without reading it.
struct FileStamp {
    std::uint64_t Device = 0;
    std::uint64_t Inode = 0;
    std::int64_t Size = 0;     // bytes
    std::int64_t Modified = 0; // nanoseconds since 1970

    bool operator==(const FileStamp&) const = default;
};

FileStamp StampOf(const struct stat& status);

/// Nothing if there is no such file, or if it is something else than a file (a folder, a pipe).
std::optional<FileStamp> StampOf(const std::string& path);

struct FileContent {
    std::string Bytes;
    FileStamp Stamp;
};

/// The file's bytes and its stamp before they were read. Returns 0 or errno: EINVAL if it is no file, EFBIG
/// if it is larger than `limit` bytes, EAGAIN if it changed while it was read. Never waits for another
/// process.
int ReadWholeFile(const std::string& path, std::size_t limit, FileContent& content);

/// Is this number of an error the absence of a file? All others leave open whether it is there.
bool IsAbsence(int error);

} // namespace desktop::regfile
