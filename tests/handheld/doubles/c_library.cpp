// The C library's part of the handheld's core library, on the guarded heap. Image and tests share it.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "handheld/loader/guarded_memory.h"

namespace {

constexpr size_t kWord = sizeof(uint32_t);
constexpr size_t kQuad = 4 * kWord;

// Four words at a time, as such libraries do.
uint8_t* FillQuads(uint8_t* at, uint32_t word, size_t quads) {
    for (; quads != 0; --quads) {
        register uint32_t a __asm__("r4") = word;
        register uint32_t b __asm__("r5") = word;
        register uint32_t c __asm__("r6") = word;
        register uint32_t d __asm__("r7") = word;
        __asm__ volatile("stmia %[at]!, {%[a], %[b], %[c], %[d]}"
                         : [at] "+r"(at)
                         : [a] "r"(a), [b] "r"(b), [c] "r"(c), [d] "r"(d)
                         : "memory");
    }
    return at;
}

uint8_t* CopyQuads(uint8_t* to, const uint8_t*& from, size_t quads) {
    for (; quads != 0; --quads) {
        __asm__ volatile(
            "ldmia %[from]!, {r4, r5, r6, r7}\n"
            "stmia %[to]!, {r4, r5, r6, r7}"
            : [to] "+r"(to), [from] "+r"(from)
            :
            : "r4", "r5", "r6", "r7", "memory");
    }
    return to;
}

bool IsAligned(const void* memory) {
    return reinterpret_cast<uintptr_t>(memory) % kWord == 0;
}

}  // namespace

extern "C" {

void* malloc(size_t bytes) {
    return GuardedAlloc(bytes);
}

void free(void* block) {
    GuardedFree(block);
}

// By words where it can be, so that counts of instructions mean something.
void* memcpy(void* to, const void* from, size_t bytes) {
    auto* target = static_cast<uint8_t*>(to);
    const auto* source = static_cast<const uint8_t*>(from);
    if (IsAligned(target) && IsAligned(source)) {
        target = CopyQuads(target, source, bytes / kQuad);
        bytes %= kQuad;
    }
    while (bytes-- != 0) *target++ = *source++;
    return to;
}

void* memmove(void* to, const void* from, size_t bytes) {
    auto* const target = static_cast<uint8_t*>(to);
    const auto* const source = static_cast<const uint8_t*>(from);
    if (target <= source) return memcpy(to, from, bytes);
    while (bytes-- != 0) target[bytes] = source[bytes];
    return to;
}

void* memset(void* memory, int value, size_t bytes) {
    auto* at = static_cast<uint8_t*>(memory);
    const auto byte = static_cast<uint8_t>(value);
    if (IsAligned(at)) {
        at = FillQuads(at, byte * 0x01010101u, bytes / kQuad);
        bytes %= kQuad;
    }
    for (; bytes != 0; --bytes) *at++ = byte;
    return memory;
}

int memcmp(const void* left, const void* right, size_t bytes) {
    const auto* a = static_cast<const uint8_t*>(left);
    const auto* b = static_cast<const uint8_t*>(right);
    for (; bytes != 0; --bytes, ++a, ++b)
        if (*a != *b) return *a - *b;
    return 0;
}

size_t strlen(const char* text) {
    size_t length = 0;
    while (text[length] != 0) ++length;
    return length;
}

int strncmp(const char* left, const char* right, size_t most) {
    for (; most != 0; --most, ++left, ++right)
        if (*left != *right || *left == 0) return static_cast<uint8_t>(*left) - static_cast<uint8_t>(*right);
    return 0;
}

int strcmp(const char* left, const char* right) {
    return strncmp(left, right, SIZE_MAX);
}

size_t wcslen(const wchar_t* text) {
    size_t length = 0;
    while (text[length] != 0) ++length;
    return length;
}

wchar_t* wcscpy(wchar_t* to, const wchar_t* from) {
    for (wchar_t* at = to; (*at++ = *from++) != 0;) {
    }
    return to;
}

// Twice or half as often as the exponent says; beyond these every value is infinite or zero already.
double ldexp(double value, int exponent) {
    constexpr int kEnough = 2200;
    if (exponent > kEnough) exponent = kEnough;
    if (exponent < -kEnough) exponent = -kEnough;
    for (; exponent > 0; --exponent) value *= 2;
    for (; exponent < 0; ++exponent) value /= 2;
    return value;
}
}

// The headers have two overloads of each for one name of the library.
extern "C" {

const char* CharacterIn(const char* text, int wanted) __asm__("strchr");
const char* LastCharacterIn(const char* text, int wanted) __asm__("strrchr");

const char* CharacterIn(const char* text, int wanted) {
    while (*text != static_cast<char>(wanted))
        if (*text++ == 0) return nullptr;
    return text;
}

const char* LastCharacterIn(const char* text, int wanted) {
    const char* last = nullptr;
    do {
        if (*text == static_cast<char>(wanted)) last = text;
    } while (*text++ != 0);
    return last;
}
}
