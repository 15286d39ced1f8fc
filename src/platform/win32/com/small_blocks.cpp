// The memory of a component: small blocks from lists of their own. The system's heap takes longer for a short
// string than a foreign object for the whole call that returns it, and a list of rows is made of nothing but
// short strings.
//
// The lists serve the thread that used the module first, which in an apartment is the one that everything
// runs on. Blocks that another thread frees come back to it; what another thread allocates is the heap's.

#include <windows.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t kGrain = 16;
constexpr std::size_t kClasses = 32;
constexpr std::size_t kChunk = 0x10000;
constexpr std::uint32_t kFromHeap = 0xFFFFFFFF;

/// In front of every block; `next` counts only while the block is free.
struct alignas(kGrain) Header {
    std::uint32_t sizeClass;
    Header* next;
};
static_assert(sizeof(Header) == kGrain);

struct Pool {
    std::array<Header*, kClasses> free{};
    char* chunk = nullptr;
    std::size_t left = 0;
    std::atomic<std::uintptr_t> owner{0};
    std::atomic<Header*> returned{nullptr};
};

constinit Pool pool;

/// The calling thread's block of the system, which is not shared by two threads at a time; read from its
/// register.
std::uintptr_t currentThread() noexcept {
#ifdef _WIN64
    return __readgsqword(offsetof(NT_TIB, Self));
#else
    return __readfsdword(offsetof(NT_TIB, Self));
#endif
}

bool isOwner() noexcept {
    const std::uintptr_t thread = currentThread();
    std::uintptr_t owner = pool.owner.load(std::memory_order_relaxed);
    if (owner == 0 && pool.owner.compare_exchange_strong(owner, thread))
        return true;
    return owner == thread;
}

void push(Header* block) noexcept {
    Header*& first = pool.free[block->sizeClass];
    block->next = first;
    first = block;
}

void takeReturned() noexcept {
    Header* block = pool.returned.exchange(nullptr, std::memory_order_acquire);
    while (block != nullptr) {
        Header* next = block->next;
        push(block);
        block = next;
    }
}

void giveBack(Header* block) noexcept {
    block->next = pool.returned.load(std::memory_order_relaxed);
    while (!pool.returned.compare_exchange_weak(block->next, block, std::memory_order_release)) {
    }
}

Header* fromHeap(std::size_t size) {
    auto* block = static_cast<Header*>(std::malloc(size + sizeof(Header)));
    if (block == nullptr)
        throw std::bad_alloc();
    block->sizeClass = kFromHeap;
    return block;
}

Header* carve(std::size_t sizeClass) {
    const std::size_t size = (sizeClass + 1) * kGrain + sizeof(Header);
    if (pool.left < size) {
        auto* chunk = static_cast<char*>(std::malloc(kChunk));
        if (chunk == nullptr)
            throw std::bad_alloc();
        pool.chunk = chunk;
        pool.left = kChunk;
    }
    auto* block = reinterpret_cast<Header*>(pool.chunk);
    block->sizeClass = static_cast<std::uint32_t>(sizeClass);
    pool.chunk += size;
    pool.left -= size;
    return block;
}

Header* fromPool(std::size_t sizeClass) {
    if (pool.free[sizeClass] == nullptr) {
        takeReturned();
        if (pool.free[sizeClass] == nullptr)
            return carve(sizeClass);
    }
    Header* block = pool.free[sizeClass];
    pool.free[sizeClass] = block->next;
    return block;
}

}  // namespace

void* operator new(std::size_t size) {
    const std::size_t sizeClass = size == 0 ? 0 : (size - 1) / kGrain;
    return (sizeClass < kClasses && isOwner() ? fromPool(sizeClass) : fromHeap(size)) + 1;
}

void operator delete(void* memory) noexcept {
    if (memory == nullptr)
        return;
    Header* block = static_cast<Header*>(memory) - 1;
    if (block->sizeClass == kFromHeap)
        std::free(block);
    else if (isOwner())
        push(block);
    else
        giveBack(block);
}

void operator delete(void* memory, std::size_t) noexcept {
    ::operator delete(memory);
}
