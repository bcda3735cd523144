#include "capture/chunk_queue.h"

#include <gtest/gtest.h>

#include <cstring>
#include <thread>
#include <vector>

namespace {

TEST(ChunkQueue, EmptyHasNoHead) {
    ChunkQueue queue;
    EXPECT_EQ(queue.Head(), nullptr);
}

TEST(ChunkQueue, KeepsOrderTagAndACopy) {
    ChunkQueue queue;
    uint8_t data[] = {1, 2, 3};
    ASSERT_TRUE(queue.Append(ChunkTag::video, data, 3));
    ASSERT_TRUE(queue.Append(ChunkTag::sound, data, 1));
    data[0] = 9;
    const Chunk* head = queue.Head();
    ASSERT_NE(head, nullptr);
    EXPECT_EQ(head->tag, ChunkTag::video);
    EXPECT_EQ(head->size, 3u);
    EXPECT_EQ(head->data[0], 1);
    EXPECT_EQ(queue.Head(), head);
    queue.Drop();
    head = queue.Head();
    ASSERT_NE(head, nullptr);
    EXPECT_EQ(head->tag, ChunkTag::sound);
    queue.Drop();
    EXPECT_EQ(queue.Head(), nullptr);
}

TEST(ChunkQueue, RefusesNothing) {
    ChunkQueue queue;
    const uint8_t byte = 0;
    EXPECT_FALSE(queue.Append(ChunkTag::video, nullptr, 4));
    EXPECT_FALSE(queue.Append(ChunkTag::video, &byte, 0));
    EXPECT_EQ(queue.Head(), nullptr);
}

TEST(ChunkQueue, TwoProducersLoseNothingAndKeepTheirOwnOrder) {
    constexpr uint32_t kEach = 20000;
    ChunkQueue queue;
    const auto produce = [&queue](ChunkTag tag) {
        for (uint32_t i = 0; i < kEach; ++i) ASSERT_TRUE(queue.Append(tag, &i, sizeof(i)));
    };
    std::thread video(produce, ChunkTag::video), sound(produce, ChunkTag::sound);
    uint32_t next[2] = {};
    while (next[0] + next[1] < 2 * kEach) {
        const Chunk* const chunk = queue.Head();
        if (chunk == nullptr) {
            std::this_thread::yield();
            continue;
        }
        uint32_t number;
        std::memcpy(&number, chunk->data, sizeof(number));
        ASSERT_EQ(number, next[static_cast<uint32_t>(chunk->tag)]++);
        queue.Drop();
    }
    video.join();
    sound.join();
    EXPECT_EQ(queue.Head(), nullptr);
}

}  // namespace
