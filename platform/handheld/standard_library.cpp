// The few compiled parts of the C++ library that its templates call.  Where the library would throw, the
// program ends.
#include <string>

#include "platform/handheld/end_program.h"

template class std::basic_string<wchar_t>;

namespace std {

void __throw_bad_alloc() {
    EndProgram();
}

void __throw_bad_array_new_length() {
    EndProgram();
}

void __throw_logic_error(const char*) {
    EndProgram();
}

void __throw_length_error(const char*) {
    EndProgram();
}

void __throw_out_of_range_fmt(const char*, ...) {
    EndProgram();
}

void __throw_bad_function_call() {
    EndProgram();
}

}  // namespace std

extern "C" void __cxa_pure_virtual() {
    EndProgram();
}
