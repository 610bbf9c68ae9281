#pragma once

#include <cstddef>
#include <string>

#include <cups/cups.h>

namespace desktop::cups {

/// The description of a queue's driver, fetched from the print server into memory: no other user can open
/// or change it, and nothing of it stays behind.
class PpdFile {
  public:
    /// Bytes. The longest of real drivers have a tenth of this; a server that sends more has lost its way.
    static constexpr std::size_t Longest = 16U << 20U;

    PpdFile() = default;
    ~PpdFile();
    PpdFile(const PpdFile&) = delete;
    PpdFile& operator=(const PpdFile&) = delete;

    /// Fetches a file of the server's. False if the server does not answer, or stops halfway; if it has no
    /// such file for this user, or one of more than Longest bytes, the answer is true and there is no file.
    bool Fetch(http_t* http, const std::string& resource);

    /// A name to open the file by, while this object lives; empty if there is none.
    std::string Name() const;

  private:
    bool Take(http_t* http);
    void Drop();

    int descriptor_ = -1;
};

} // namespace desktop::cups
