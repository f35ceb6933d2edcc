// A heap for tests, linked into each image of a build in place of the C library's: a
// block ends right at a page that cannot be read, what is freed cannot be read ever after,
// and the bytes before a block are looked at when it is freed. A fault ends the program
// where it happens. A block is aligned as its size is: an object's size is a multiple of
// what it asks for.
#include <windows.h>

#include <atomic>
#include <cstdint>
#include <cstring>

extern "C" {
void* __real_malloc(std::size_t size);
void* __real_realloc(void* block, std::size_t size);
void __real_free(void* block);
}

namespace {

constexpr std::uintptr_t kPage = 4096;
// All images take their arenas from here, so that each knows the others' blocks.
constexpr std::uintptr_t kZone = 0x100000000000;
constexpr std::uintptr_t kZoneEnd = 0x180000000000;
constexpr std::uintptr_t kArena = std::uintptr_t{16} << 30;
// Each takes two of the mappings of which the system gives a process 65,530.
constexpr long kMostBlocks = 25000;

struct [[gnu::packed]] Header {
    std::uintptr_t size;
    std::uintptr_t owner;
};

std::atomic_flag g_locked = ATOMIC_FLAG_INIT;
std::uintptr_t g_next = 0;  // where the next block's pages begin
std::uintptr_t g_end = 0;
std::atomic<long> g_blocks{0};

// This image. Its last byte is no zero, which is what is written too early most often.
std::uintptr_t owner() { return ~reinterpret_cast<std::uintptr_t>(&g_next); }

void say(const char* sText)
{
    DWORD written;
    ::WriteFile(::GetStdHandle(STD_ERROR_HANDLE), sText, static_cast<DWORD>(std::strlen(sText)), &written, nullptr);
}

[[noreturn]] void die(const char* sReason)
{
    say(sReason);
    __builtin_trap();
}

// Addresses are used once: nothing takes the place of what is freed.
unsigned char* takePages(std::uintptr_t bytes)
{
    while (g_locked.test_and_set(std::memory_order_acquire))
        ::Sleep(0);
    for (std::uintptr_t arena = kZone; g_end - g_next < bytes && arena < kZoneEnd; arena += kArena)
        if (::VirtualAlloc(reinterpret_cast<void*>(arena), kArena, MEM_RESERVE, PAGE_NOACCESS)) {
            g_next = arena;
            g_end = arena + kArena;
        }
    auto* const pages = reinterpret_cast<unsigned char*>(g_next);
    g_next += bytes;
    g_locked.clear(std::memory_order_release);
    return pages;
}

void* allocate(std::size_t size)
{
    if (size > kArena / 2)
        return nullptr;
    if (++g_blocks >= kMostBlocks) {
        if (g_blocks-- == kMostBlocks)
            say("GUARD: so many blocks that some are not guarded\n");
        return __real_malloc(size);
    }
    const std::uintptr_t bytes = (size + sizeof(Header) + kPage - 1) & ~(kPage - 1);
    unsigned char* const pages = takePages(bytes + kPage);
    if (!::VirtualAlloc(pages, bytes, MEM_COMMIT, PAGE_READWRITE))
        die("GUARD: the system gives no more memory\n");
    unsigned char* const block = pages + bytes - size;
    std::memset(block, 0xCB, size);
    reinterpret_cast<Header*>(block)[-1] = {size, owner()};
    return block;
}

bool isGuarded(const void* block)
{
    const auto address = reinterpret_cast<std::uintptr_t>(block);
    return address >= kZone && address < kZoneEnd;
}

// Of a block of this image's; that of a freed one cannot be read.
std::size_t sizeOf(const void* block)
{
    const Header& header = static_cast<const Header*>(block)[-1];
    if (header.owner != owner())
        die("GUARD: no block, one of another image, or written before its beginning\n");
    return header.size;
}

void release(void* block)
{
    const std::uintptr_t end = reinterpret_cast<std::uintptr_t>(block) + sizeOf(block);
    const std::uintptr_t first = (reinterpret_cast<std::uintptr_t>(block) - sizeof(Header)) & ~(kPage - 1);
    ::VirtualFree(reinterpret_cast<void*>(first), end - first, MEM_DECOMMIT);
    --g_blocks;
}

}  // namespace

extern "C" {

void* __wrap_malloc(std::size_t size) { return allocate(size); }

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    std::size_t bytes;
    void* const block = __builtin_mul_overflow(count, size, &bytes) ? nullptr : allocate(bytes);
    return block == nullptr ? nullptr : std::memset(block, 0, bytes);
}

// What this heap did not give, the C library did.
void __wrap_free(void* block) { isGuarded(block) ? release(block) : __real_free(block); }

void* __wrap_realloc(void* block, std::size_t size)
{
    if (block != nullptr && !isGuarded(block))
        return __real_realloc(block, size);
    void* const moved = allocate(size);
    if (block != nullptr && moved != nullptr) {
        const std::size_t before = sizeOf(block);
        std::memcpy(moved, block, before < size ? before : size);
        release(block);
    }
    return moved;
}

}  // extern "C"
