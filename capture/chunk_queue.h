// Buffers on their way to the movie file: many producers, one consumer, no lock.  Portable.
#pragma once
#include <atomic>
#include <cstdint>

enum class ChunkTag : uint32_t { sound = 0, video = 1 };

struct Chunk {
    std::atomic<Chunk*> next{nullptr};
    uint32_t size = 0;
    ChunkTag tag = ChunkTag::video;
    uint8_t* data = nullptr;  // owned
};

class ChunkQueue {
  public:
    ChunkQueue() = default;
    ChunkQueue(const ChunkQueue&) = delete;
    ChunkQueue& operator=(const ChunkQueue&) = delete;
    ~ChunkQueue();

    // Copies the data and appends the copy.  False when data is null, size is 0 or memory is short.
    // Any thread.
    bool Append(ChunkTag tag, const void* data, uint32_t size);

    // The oldest chunk, or null when none is complete.  It stays in place until Drop.  Consumer only.
    const Chunk* Head();
    void Drop();

  private:
    void Push(Chunk* chunk);

    std::atomic<Chunk*> m_last{&m_stub};  // producers swap themselves in here
    Chunk* m_first = &m_stub;             // consumer's end
    Chunk m_stub;                         // keeps the list from ever being empty
};
