#pragma once

#include <cstddef>

namespace support {

/// Bytes of the heap that the program holds at this moment.
std::size_t AllocatedBytes();

/// Counts the allocations of at least so many bytes that are made while it lives. One at a time.
class LargeAllocations {
  public:
    explicit LargeAllocations(std::size_t bytes);
    ~LargeAllocations();
    LargeAllocations(const LargeAllocations&) = delete;
    LargeAllocations& operator=(const LargeAllocations&) = delete;

    int Count() const;
};

} // namespace support
