#include "handheld/loader/system_calls.h"

namespace sys {

namespace {

enum Number : uint32_t {
    kExit = 248,
    kFork = 2,
    kReadCall = 3,
    kWriteCall = 4,
    kOpen = 5,
    kCloseCall = 6,
    kPipe = 42,
    kUnmap = 91,
    kGetPriority = 96,
    kSetTimer = 104,
    kWait = 114,
    kProtect = 125,
    kSignalAction = 174,
    kSignalStack = 186,
    kMap = 192,
};

uint32_t Word(const volatile void* pointer) {
    return reinterpret_cast<uint32_t>(pointer);
}

int Call(Number number, uint32_t a = 0, uint32_t b = 0, uint32_t c = 0, uint32_t d = 0, uint32_t e = 0,
         uint32_t f = 0) {
    register uint32_t r0 __asm__("r0") = a;
    register uint32_t r1 __asm__("r1") = b;
    register uint32_t r2 __asm__("r2") = c;
    register uint32_t r3 __asm__("r3") = d;
    register uint32_t r4 __asm__("r4") = e;
    register uint32_t r5 __asm__("r5") = f;
    register uint32_t r7 __asm__("r7") = number;
    __asm__ volatile("svc 0" : "+r"(r0) : "r"(r1), "r"(r2), "r"(r3), "r"(r4), "r"(r5), "r"(r7) : "memory");
    return static_cast<int>(r0);
}

constexpr uint32_t kShared = 1, kPrivate = 2, kWithoutFile = 0x20, kNoReserve = 0x4000, kFixed = 0x100000;
constexpr int kGreatestError = 4095;

}  // namespace

int Open(const char* path) {
    return Call(kOpen, Word(path));
}

int Read(int file, void* room, uint32_t bytes) {
    return Call(kReadCall, static_cast<uint32_t>(file), Word(room), bytes);
}

void Write(int file, const char* text, uint32_t bytes) {
    while (bytes != 0) {
        const int written = Call(kWriteCall, static_cast<uint32_t>(file), Word(text), bytes);
        if (written <= 0) return;
        text += written;
        bytes -= static_cast<uint32_t>(written);
    }
}

void Close(int file) {
    Call(kCloseCall, static_cast<uint32_t>(file));
}

void* Map(uint32_t address, uint32_t bytes, Protection protection, Sharing sharing) {
    // "Fixed" without replacing what lies there.
    const uint32_t flags = (sharing == Sharing::withChildren ? kShared : kPrivate) | kWithoutFile |
                           kNoReserve | (address != 0 ? kFixed : 0);
    const int memory = Call(kMap, address, bytes, protection, flags, UINT32_MAX);
    return memory < 0 && memory >= -kGreatestError ? nullptr : reinterpret_cast<void*>(memory);
}

bool Protect(void* memory, uint32_t bytes, Protection protection) {
    return Call(kProtect, Word(memory), bytes, protection) == 0;
}

void Unmap(void* memory, uint32_t bytes) {
    Call(kUnmap, Word(memory), bytes);
}

bool Pipe(int (&ends)[2]) {
    return Call(kPipe, Word(ends)) == 0;
}

int Fork() {
    return Call(kFork);
}

int WaitFor(int child) {
    int status = 0;
    Call(kWait, static_cast<uint32_t>(child), Word(&status));
    return status;
}

void EndAfter(uint32_t seconds) {
    const uint32_t once[4] = {0, 0, seconds, 0};
    Call(kSetTimer, 0, Word(once));
}

void Exit(int code) {
    for (;;) Call(kExit, static_cast<uint32_t>(code));
}

void Handle(int signal, SignalHandler handler) {
    static uint8_t stack[0x4000];
    const uint32_t handlerStack[3] = {Word(stack), 0, sizeof stack};
    Call(kSignalStack, Word(handlerStack));
    constexpr uint32_t kWithInfo = 4, kOnOwnStack = 0x08000000;
    const uint32_t action[5] = {reinterpret_cast<uint32_t>(handler), kWithInfo | kOnOwnStack, 0, 0, 0};
    Call(kSignalAction, static_cast<uint32_t>(signal), Word(action), 0, 8);
}

void Mark(uint32_t which, uint32_t edge) {
    Call(kGetPriority, which, edge);
}

}  // namespace sys
