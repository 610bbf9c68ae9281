#include "desktop/regfile/FileWriter.h"

#include <cstddef>

namespace desktop::regfile {
namespace {

constexpr std::size_t BufferSize = 64U << 10U;

} // namespace

int FileWriter::WriteAll(std::string_view bytes) {
    while (error_ == 0 && !bytes.empty()) {
        const ssize_t count =
            Uninterrupted([&] { return write(file_.Number(), bytes.data(), bytes.size()); });
        if (count < 0) {
            error_ = errno;
        } else {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        }
    }
    return error_;
}

int FileWriter::Write(std::string_view bytes) {
    if (waiting_.size() + bytes.size() < BufferSize) {
        waiting_.append(bytes);
        return error_;
    }
    Flush();
    return WriteAll(bytes);
}

int FileWriter::Flush() {
    WriteAll(waiting_);
    waiting_.clear();
    return error_;
}

} // namespace desktop::regfile
