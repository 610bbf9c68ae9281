#include "desktop/cups/PpdFile.h"

#include <array>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>

namespace desktop::cups {

namespace {

constexpr std::size_t PieceSize = 65536;
/// The reader would unpack a file that begins like this, to any size.
constexpr std::string_view Packed = "\x1f\x8b";

/// The state of the answer to one request; HTTP_STATUS_ERROR if there is none.
http_status_t Request(http_t* http, const std::string& resource) {
    const char* leave = httpGetAuthString(http);
    httpClearFields(http);
    httpSetField(http, HTTP_FIELD_AUTHORIZATION, leave == nullptr ? "" : leave);
    if (httpGet(http, resource.c_str()) != 0) {
        return HTTP_STATUS_ERROR;
    }
    http_status_t status = HTTP_STATUS_CONTINUE;
    while (status == HTTP_STATUS_CONTINUE) {
        status = httpUpdate(http);
    }
    return status;
}

} // namespace

PpdFile::~PpdFile() {
    Drop();
}

bool PpdFile::Fetch(http_t* http, const std::string& resource) {
    http_status_t status = Request(http, resource);
    // A server that asks who it is knows the user by the socket. The library then connects anew.
    if (status == HTTP_STATUS_UNAUTHORIZED && cupsDoAuthentication(http, "GET", resource.c_str()) == 0) {
        status = Request(http, resource);
    }
    if (status == HTTP_STATUS_ERROR) {
        return false;
    }
    return status != HTTP_STATUS_OK || Take(http);
}

bool PpdFile::Take(http_t* http) {
    descriptor_ = memfd_create("ppd", MFD_CLOEXEC);
    std::array<char, PieceSize> piece;
    std::size_t taken = 0;
    while (const ssize_t count = httpRead2(http, piece.data(), piece.size())) {
        if (count < 0) {
            return false;
        }
        const std::string_view text(piece.data(), static_cast<std::size_t>(count));
        const bool isPacked = taken == 0 && text.starts_with(Packed);
        taken += text.size();
        if (isPacked || taken > Longest || write(descriptor_, text.data(), text.size()) != count) {
            Drop();
            return true;
        }
    }
    return true;
}

void PpdFile::Drop() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
    descriptor_ = -1;
}

std::string PpdFile::Name() const {
    return descriptor_ < 0 ? "" : "/proc/self/fd/" + std::to_string(descriptor_);
}

} // namespace desktop::cups
