// What is allocated by everybody but the OpenGL driver: a software renderer's own memory goes up and down by tens of
// megabytes, between which a leak would be lost. So the allocation functions of this program, which all libraries find
// first, keep a table of the blocks that were asked for from elsewhere than the driver's code.

#include "Gauges.h"

#if !defined(__SANITIZE_ADDRESS__)

#    include <link.h>
#    include <sys/mman.h>

#    include <array>
#    include <atomic>
#    include <cerrno>
#    include <cstddef>
#    include <cstdint>
#    include <cstring>
#    include <new>

extern "C"
{
    void* __libc_malloc(std::size_t a_size);
    void* __libc_calloc(std::size_t a_count, std::size_t a_size);
    void* __libc_realloc(void* a_block, std::size_t a_size);
    void* __libc_memalign(std::size_t a_alignment, std::size_t a_size);
    void __libc_free(void* a_block);
}

namespace
{

struct SRange
{
    std::uintptr_t start;
    std::uintptr_t end;
};

struct SEntry
{
    std::uintptr_t block;
    std::size_t size;
};

constexpr std::size_t k_entries = std::size_t{1} << 22;
constexpr std::array k_driverNames{"_dri.so", "libLLVM", "libgallium", "libGLX_mesa", "libglapi"};

std::array<SRange, 64> s_driver{};
std::size_t s_driverRanges = 0;
/// Open addressing; an entry without a block is free. Null until the count begins.
SEntry* s_entries = nullptr;
std::atomic_flag s_lock = ATOMIC_FLAG_INIT;
long s_bytes = 0;
long s_blocks = 0;

class CLock
{
public:
    CLock()
    {
        while (s_lock.test_and_set(std::memory_order_acquire))
        {
        }
    }
    ~CLock() { s_lock.clear(std::memory_order_release); }
    CLock(const CLock&) = delete;
    CLock& operator=(const CLock&) = delete;
};

bool IsDriver(const void* a_caller)
{
    const auto caller = reinterpret_cast<std::uintptr_t>(a_caller);
    for (std::size_t i = 0; i < s_driverRanges; ++i)
    {
        if (caller >= s_driver[i].start && caller < s_driver[i].end)
        {
            return true;
        }
    }
    return false;
}

std::size_t Home(std::uintptr_t a_block)
{
    return (a_block >> 4) * 0x9E3779B97F4A7C15U >> (64 - 22);
}

std::size_t Next(std::size_t a_index)
{
    return (a_index + 1) % k_entries;
}

void* Enter(void* a_block, std::size_t a_size, const void* a_caller)
{
    if (a_block != nullptr && s_entries != nullptr && !IsDriver(a_caller))
    {
        const CLock lock;
        const auto block = reinterpret_cast<std::uintptr_t>(a_block);
        std::size_t index = Home(block);
        while (s_entries[index].block != 0)
        {
            index = Next(index);
        }
        s_entries[index] = {block, a_size};
        s_bytes += static_cast<long>(a_size);
        ++s_blocks;
    }
    return a_block;
}

void Leave(void* a_block)
{
    if (a_block == nullptr || s_entries == nullptr)
    {
        return;
    }
    const CLock lock;
    const auto block = reinterpret_cast<std::uintptr_t>(a_block);
    std::size_t hole = Home(block);
    while (s_entries[hole].block != block)
    {
        if (s_entries[hole].block == 0)
        {
            return;
        }
        hole = Next(hole);
    }
    s_bytes -= static_cast<long>(s_entries[hole].size);
    --s_blocks;
    // Those behind it that would no longer be found move up.
    for (std::size_t index = Next(hole); s_entries[index].block != 0; index = Next(index))
    {
        const std::size_t home = Home(s_entries[index].block);
        if ((index - home) % k_entries >= (index - hole) % k_entries)
        {
            s_entries[hole] = s_entries[index];
            hole = index;
        }
    }
    s_entries[hole] = {};
}

int NoteDriver(dl_phdr_info* a_object, std::size_t, void*)
{
    for (const char* name : k_driverNames)
    {
        if (std::strstr(a_object->dlpi_name, name) == nullptr)
        {
            continue;
        }
        for (int i = 0; i < a_object->dlpi_phnum && s_driverRanges < s_driver.size(); ++i)
        {
            const auto& part = a_object->dlpi_phdr[i];
            if (part.p_type == PT_LOAD && (part.p_flags & PF_X) != 0)
            {
                const std::uintptr_t start = a_object->dlpi_addr + part.p_vaddr;
                s_driver[s_driverRanges++] = {start, start + part.p_memsz};
            }
        }
        break;
    }
    return 0;
}

void* New(std::size_t a_size, const void* a_caller)
{
    void* const block = Enter(__libc_malloc(a_size), a_size, a_caller);
    if (block == nullptr)
    {
        throw std::bad_alloc();
    }
    return block;
}

void* NewAligned(std::size_t a_size, std::align_val_t a_alignment, const void* a_caller)
{
    void* const block = Enter(__libc_memalign(static_cast<std::size_t>(a_alignment), a_size), a_size, a_caller);
    if (block == nullptr)
    {
        throw std::bad_alloc();
    }
    return block;
}

} // namespace

// NOLINTBEGIN: the names and arguments are the C library's and the compiler's.

extern "C" void* malloc(std::size_t a_size)
{
    return Enter(__libc_malloc(a_size), a_size, __builtin_return_address(0));
}

extern "C" void* calloc(std::size_t a_count, std::size_t a_size)
{
    return Enter(__libc_calloc(a_count, a_size), a_count * a_size, __builtin_return_address(0));
}

extern "C" void* realloc(void* a_block, std::size_t a_size)
{
    // Out first: as soon as it is free, another thread may be given it.
    Leave(a_block);
    return Enter(__libc_realloc(a_block, a_size), a_size, __builtin_return_address(0));
}

extern "C" void* memalign(std::size_t a_alignment, std::size_t a_size)
{
    return Enter(__libc_memalign(a_alignment, a_size), a_size, __builtin_return_address(0));
}

extern "C" void* aligned_alloc(std::size_t a_alignment, std::size_t a_size)
{
    return Enter(__libc_memalign(a_alignment, a_size), a_size, __builtin_return_address(0));
}

extern "C" int posix_memalign(void** a_block, std::size_t a_alignment, std::size_t a_size)
{
    *a_block = Enter(__libc_memalign(a_alignment, a_size), a_size, __builtin_return_address(0));
    return *a_block != nullptr ? 0 : ENOMEM;
}

extern "C" void free(void* a_block)
{
    Leave(a_block);
    __libc_free(a_block);
}

void* operator new(std::size_t a_size)
{
    return New(a_size, __builtin_return_address(0));
}

void* operator new[](std::size_t a_size)
{
    return New(a_size, __builtin_return_address(0));
}

void* operator new(std::size_t a_size, const std::nothrow_t&) noexcept
{
    return Enter(__libc_malloc(a_size), a_size, __builtin_return_address(0));
}

void* operator new[](std::size_t a_size, const std::nothrow_t&) noexcept
{
    return Enter(__libc_malloc(a_size), a_size, __builtin_return_address(0));
}

void* operator new(std::size_t a_size, std::align_val_t a_alignment)
{
    return NewAligned(a_size, a_alignment, __builtin_return_address(0));
}

void* operator new[](std::size_t a_size, std::align_val_t a_alignment)
{
    return NewAligned(a_size, a_alignment, __builtin_return_address(0));
}

void operator delete(void* a_block) noexcept
{
    free(a_block);
}

void operator delete[](void* a_block) noexcept
{
    free(a_block);
}

void operator delete(void* a_block, std::size_t) noexcept
{
    free(a_block);
}

void operator delete[](void* a_block, std::size_t) noexcept
{
    free(a_block);
}

void operator delete(void* a_block, std::align_val_t) noexcept
{
    free(a_block);
}

void operator delete[](void* a_block, std::align_val_t) noexcept
{
    free(a_block);
}

void operator delete(void* a_block, std::size_t, std::align_val_t) noexcept
{
    free(a_block);
}

void operator delete[](void* a_block, std::size_t, std::align_val_t) noexcept
{
    free(a_block);
}

// NOLINTEND

namespace Soak
{

void CountHeap()
{
    dl_iterate_phdr(NoteDriver, nullptr);
    void* const entries = mmap(nullptr, k_entries * sizeof(SEntry), PROT_READ | PROT_WRITE,
                               MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    const CLock lock;
    s_entries = entries != MAP_FAILED ? static_cast<SEntry*>(entries) : nullptr;
}

SHeap Heap()
{
    const CLock lock;
    return {s_bytes, s_blocks};
}

} // namespace Soak

#else

namespace Soak
{

// The sanitizer has functions of its own, and looks for leaks itself.

void CountHeap() {}

SHeap Heap()
{
    return {};
}

} // namespace Soak

#endif
