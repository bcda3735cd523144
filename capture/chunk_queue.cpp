#include "capture/chunk_queue.h"

#include <cstdlib>
#include <cstring>
#include <new>

ChunkQueue::~ChunkQueue() {
    while (Head() != nullptr) Drop();
}

bool ChunkQueue::Append(ChunkTag tag, const void* data, uint32_t size) {
    if (data == nullptr || size == 0) return false;
    void* const memory = std::malloc(sizeof(Chunk) + size);  // the data follows the record
    if (memory == nullptr) return false;
    Chunk* const chunk = new (memory) Chunk;
    chunk->tag = tag;
    chunk->size = size;
    chunk->data = static_cast<uint8_t*>(memory) + sizeof(Chunk);
    std::memcpy(chunk->data, data, size);
    Push(chunk);
    return true;
}

void ChunkQueue::Push(Chunk* chunk) {
    chunk->next.store(nullptr, std::memory_order_relaxed);
    Chunk* const previous = m_last.exchange(chunk, std::memory_order_acq_rel);
    previous->next.store(chunk, std::memory_order_release);
}

const Chunk* ChunkQueue::Head() {
    Chunk* first = m_first;
    Chunk* next = first->next.load(std::memory_order_acquire);
    if (first == &m_stub) {
        if (next == nullptr) return nullptr;
        m_first = first = next;
        next = first->next.load(std::memory_order_acquire);
    }
    if (next == nullptr) {
        // The last chunk may leave only with the stub behind it; a producer between its two steps delays that.
        if (m_last.load(std::memory_order_acquire) != first) return nullptr;
        Push(&m_stub);
        if (first->next.load(std::memory_order_acquire) == nullptr) return nullptr;
    }
    return first;
}

void ChunkQueue::Drop() {
    Chunk* const first = m_first;
    m_first = first->next.load(std::memory_order_acquire);
    first->~Chunk();
    std::free(first);
}
