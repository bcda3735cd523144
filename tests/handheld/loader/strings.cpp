// What the tests use of the libraries and the program does not.
#include <cerrno>
#include <cstdlib>
#include <string>

#include "handheld/loader/line.h"

template class std::basic_string<char>;
template class std::basic_string<char16_t>;

namespace std {

void __throw_invalid_argument(const char* what) {
    Stop(Line() << what);
}

void __throw_out_of_range(const char* what) {
    Stop(Line() << what);
}

}  // namespace std

extern "C" {

int* _errno() {
    static int error;
    return &error;
}

// Digits below ten only, without a sign.
long strtol(const char* text, char** end, int base) {
    long value = 0;
    for (; *text >= '0' && *text < '0' + base && *text <= '9'; ++text) value = value * base + (*text - '0');
    *end = const_cast<char*>(text);
    return value;
}
}
