// Memory for a picture, always placed alike.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

// Begins 16 bytes behind a multiple of 64, where the C library puts large blocks. libjpeg-turbo is fastest
// there: to multiples of 32 it writes past the cache, which takes it up to 15 % longer.
class CPictureBuffer {
  public:
    explicit CPictureBuffer(size_t bytes = 0) : m_size(bytes), m_memory(bytes + kLine + kPlace) {}

    uint8_t* data() {
        const uintptr_t begin = reinterpret_cast<uintptr_t>(m_memory.data());
        return m_memory.data() + (kLine - begin % kLine) % kLine + kPlace;
    }
    size_t size() const { return m_size; }

  private:
    static constexpr size_t kLine = 64, kPlace = 16;

    size_t m_size;
    std::vector<uint8_t> m_memory;
};
