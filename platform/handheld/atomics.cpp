// What stands behind std::atomic on a processor without instructions for it: the system's own exchanges.
// Both sides are bound by their link names: the compiler knows these functions as built-ins and would turn
// the bodies into calls of themselves.  One processor, so that the system's exchange is all the order there
// is to keep.
#include <cstdint>

extern "C" {

int32_t SystemExchange(volatile int32_t* word, int32_t value) __asm__("InterlockedExchange");
int32_t SystemExchangeIf(volatile int32_t* word, int32_t old,
                         int32_t value) __asm__("InterlockedTestExchange");

int32_t Exchange(volatile int32_t* word, int32_t value, int order) __asm__("__atomic_exchange_4");
int32_t FetchAdd(volatile int32_t* word, int32_t value, int order) __asm__("__atomic_fetch_add_4");
bool CompareExchange(volatile int32_t* word, int32_t* expected, int32_t value, bool weak, int order,
                     int orderOnFailure) __asm__("__atomic_compare_exchange_4");

int32_t Exchange(volatile int32_t* word, int32_t value, int) {
    return SystemExchange(word, value);
}

int32_t FetchAdd(volatile int32_t* word, int32_t value, int) {
    for (;;) {
        const int32_t old = *word;
        const auto sum = static_cast<int32_t>(static_cast<uint32_t>(old) + static_cast<uint32_t>(value));
        if (SystemExchangeIf(word, old, sum) == old) return old;
    }
}

bool CompareExchange(volatile int32_t* word, int32_t* expected, int32_t value, bool, int, int) {
    const int32_t wanted = *expected;
    const int32_t found = SystemExchangeIf(word, wanted, value);
    *expected = found;
    return found == wanted;
}
}
