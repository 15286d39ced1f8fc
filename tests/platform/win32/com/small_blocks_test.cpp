// The module's own `operator new`, which this program is linked with.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace quorel::win32::testing {
namespace {

struct Block {
    unsigned char* memory;
    std::size_t size;
    unsigned char mark;
};

Block makeBlock(std::size_t size, unsigned char mark) {
    auto* memory = static_cast<unsigned char*>(::operator new(size));
    std::memset(memory, mark, size);
    return {memory, size, mark};
}

bool isWhole(const Block& block) {
    for (std::size_t i = 0; i < block.size; ++i) {
        if (block.memory[i] != block.mark)
            return false;
    }
    return true;
}

std::vector<Block> makeMany() {
    std::vector<Block> blocks;
    for (std::size_t size = 0; size < 1200; ++size)
        blocks.push_back(makeBlock(size, static_cast<unsigned char>(size * 7 + 1)));
    return blocks;
}

void freeAll(std::vector<Block>& blocks) {
    for (const Block& block : blocks) {
        EXPECT_TRUE(isWhole(block)) << block.size;
        ::operator delete(block.memory);
    }
    blocks.clear();
}

TEST(SmallBlocks, AreAlignedAndOverlapNothing) {
    for (int round = 0; round < 3; ++round) {
        std::vector<Block> blocks = makeMany();
        for (const Block& block : blocks)
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block.memory) % alignof(std::max_align_t), 0U);
        freeAll(blocks);
    }
}

TEST(SmallBlocks, AreUsedAgain) {
    void* first = ::operator new(40);
    ::operator delete(first);
    void* second = ::operator new(44);
    EXPECT_EQ(second, first);
    ::operator delete(second);
    ::operator delete(nullptr);
}

TEST(SmallBlocks, MayBeFreedByAnotherThread) {
    for (int round = 0; round < 20; ++round) {
        std::vector<Block> mine = makeMany();
        std::vector<Block> theirs;
        std::thread other([&] {
            theirs = makeMany();
            freeAll(mine);
        });
        other.join();
        freeAll(theirs);
    }
}

TEST(SmallBlocks, ServeThreadsAtOnce) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([] {
            for (int round = 0; round < 50; ++round) {
                std::vector<Block> blocks = makeMany();
                freeAll(blocks);
            }
        });
    }
    for (int round = 0; round < 50; ++round) {
        std::vector<Block> blocks = makeMany();
        freeAll(blocks);
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST(SmallBlocks, NotEnoughMemoryIsThrown) {
    EXPECT_THROW(static_cast<void>(::operator new (std::size_t{1} << 60)), std::bad_alloc);
    EXPECT_EQ(::operator new (std::size_t{1} << 60, std::nothrow), nullptr);
}

}  // namespace
}  // namespace quorel::win32::testing
