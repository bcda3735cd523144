// Memory whose end (or beginning) touches a page that nobody may use: one byte too many stops the program.
#pragma once
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

class GuardedBytes {
  public:
    explicit GuardedBytes(size_t capacity) {
        const auto page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
        m_bytes = (capacity + page - 1) / page * page;
        m_mapped = m_bytes + 2 * page;
        void* const map = mmap(nullptr, m_mapped, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (map == MAP_FAILED) throw std::bad_alloc();
        m_map = static_cast<uint8_t*>(map);
        if (mprotect(m_map + page, m_bytes, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
        m_first = m_map + page;
    }
    ~GuardedBytes() { munmap(m_map, m_mapped); }
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;

    // Room for `size` bytes that ends at the guard behind.
    uint8_t* atEnd(size_t size) { return m_first + m_bytes - size; }
    // Room that begins right behind the guard before.
    uint8_t* atStart() { return m_first; }

  private:
    uint8_t* m_map;
    uint8_t* m_first;
    size_t m_bytes;
    size_t m_mapped;
};
