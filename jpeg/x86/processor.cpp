// What the processor and its operating system support. Compiled for any x86-64.
#include "jpeg/x86/engines.h"

namespace jpeg {

bool supportsSse() {
    return __builtin_cpu_supports("sse4.1");
}

bool supportsAvx2() {
    return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") && __builtin_cpu_supports("bmi2");
}

}  // namespace jpeg
