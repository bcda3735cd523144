#include "handheld/loader/line.h"

#include "handheld/loader/system_calls.h"

namespace {

int g_file = sys::kOutput;

}  // namespace

void Line::Add(char character) {
    if (m_length + 1 < sizeof m_text) m_text[m_length++] = character;
}

Line& Line::operator<<(const char* text) {
    while (*text != 0) Add(*text++);
    return *this;
}

Line& Line::operator<<(uint32_t number) {
    if (number >= 10) *this << number / 10;
    Add(static_cast<char>('0' + number % 10));
    return *this;
}

Line& Line::operator<<(Hex number) {
    *this << "0x";
    for (int shift = 28; shift >= 0; shift -= 4) {
        const uint32_t rest = number.value >> shift;
        if (rest != 0 || shift == 0) Add("0123456789abcdef"[rest & 15]);
    }
    return *this;
}

void SayTo(int file) {
    g_file = file;
}

void Say(const Line& line) {
    sys::Write(g_file, line.Text(), line.Length());
    sys::Write(g_file, "\n", 1);
}

void Stop(const Line& line) {
    Say(line);
    sys::Exit(1);
}
