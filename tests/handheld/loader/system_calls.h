// The calls of the system that qemu-arm serves; there is no C library. Results below 0 are error numbers.
#pragma once
#include <cstdint>

namespace sys {

inline constexpr uint32_t kPage = 0x1000;
inline constexpr int kOutput = 1;

enum Protection : uint32_t { kNone = 0, kRead = 1, kReadWrite = 3, kReadExecute = 5 };
enum class Sharing { ofOneProcess, withChildren };

int Open(const char* path);
int Read(int file, void* room, uint32_t bytes);
void Write(int file, const char* text, uint32_t bytes);
void Close(int file);

// Zeroed memory at exactly that address, or anywhere for 0; null when it is taken or there is none.
void* Map(uint32_t address, uint32_t bytes, Protection protection, Sharing sharing = Sharing::ofOneProcess);
bool Protect(void* memory, uint32_t bytes, Protection protection);
void Unmap(void* memory, uint32_t bytes);

bool Pipe(int (&ends)[2]);
int Fork();
// The child's status word.
int WaitFor(int child);
void EndAfter(uint32_t seconds);
[[noreturn]] void Exit(int code);

struct SignalInfo {
    int number, error, code;  // a code below 0: sent by a program
    uint32_t address;         // or who sent it, two words
    uint32_t sender;
    uint32_t value;  // what was sent along
};
struct SignalContext {
    uint32_t flags, link, stack[3], trap, error, mask, registers[16];  // ends with the program counter
};
using SignalHandler = void (*)(int, SignalInfo*, SignalContext*);
// The handler runs on a stack of its own.
void Handle(int signal, SignalHandler handler);

// A call that every kernel refuses; a plugin of qemu sees it.
void Mark(uint32_t which, uint32_t edge);

}  // namespace sys
