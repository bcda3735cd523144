// One line of text put together without a heap, for what is said when something is broken.
#pragma once
#include <cstdint>

struct Hex {
    uint32_t value;
};

class Line {
  public:
    Line& operator<<(const char* text);
    Line& operator<<(uint32_t number);
    Line& operator<<(Hex number);
    const char* Text() const { return m_text; }
    uint32_t Length() const { return m_length; }

  private:
    void Add(char character);

    char m_text[800] = {};
    uint32_t m_length = 0;
};

// Where sentences about failures go: standard output, or the parent of a test.
void SayTo(int file);
void Say(const Line& line);

// Ends the process, with a sentence that says why it cannot go on.
[[noreturn]] void Stop(const Line& line);
