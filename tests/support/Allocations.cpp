#include "support/Allocations.h"

#include <atomic>
#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__)
#define WITH_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define WITH_SANITIZER 1
#endif
#endif

namespace {

constexpr std::size_t Nothing = static_cast<std::size_t>(-1);

std::atomic<std::size_t> counted = Nothing; // the least size that counts
std::atomic<int> found = 0;

void Note(std::size_t bytes) {
    if (bytes >= counted.load(std::memory_order_relaxed)) {
        found.fetch_add(1, std::memory_order_relaxed);
    }
}

} // namespace

// The sanitizer tells of each allocation. Without it the program has an allocator of its own in front of the
// library's.
#ifdef WITH_SANITIZER

// As the sanitizer's own header declares them, which not every compiler brings along.
extern "C" {
int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void*, std::size_t),
                                              void (*released)(const volatile void*));
std::size_t __sanitizer_get_current_allocated_bytes();
}

namespace {

void NoteAllocation(const volatile void* /*block*/, std::size_t bytes) {
    Note(bytes);
}
void NoteRelease(const volatile void* /*block*/) {}

[[maybe_unused]] const int installed = __sanitizer_install_malloc_and_free_hooks(NoteAllocation, NoteRelease);

} // namespace

std::size_t support::AllocatedBytes() {
    return __sanitizer_get_current_allocated_bytes();
}
#else
#include <malloc.h>

extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the C library's names
void* __libc_malloc(std::size_t bytes);
void* __libc_calloc(std::size_t count, std::size_t bytes);
void* __libc_realloc(void* block, std::size_t bytes);
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

void* malloc(std::size_t bytes) {
    Note(bytes);
    return __libc_malloc(bytes);
}
void* calloc(std::size_t count, std::size_t bytes) {
    Note(count * bytes);
    return __libc_calloc(count, bytes);
}
void* realloc(void* block, std::size_t bytes) {
    Note(bytes);
    return __libc_realloc(block, bytes);
}
}

std::size_t support::AllocatedBytes() {
    const auto held = mallinfo2();
    return held.uordblks + held.hblkhd;
}
#endif

namespace support {

LargeAllocations::LargeAllocations(std::size_t bytes) {
    found = 0;
    counted = bytes;
}

LargeAllocations::~LargeAllocations() {
    counted = Nothing;
}

int LargeAllocations::Count() const {
    return found;
}

} // namespace support
