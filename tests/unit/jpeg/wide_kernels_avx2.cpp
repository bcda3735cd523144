#include "jpeg/x86/lanes_avx2.h"
#include "unit/jpeg/wide_kernels_of.h"

const WideKernels kAvx2Kernels = WideKernelsOf<jpeg::Avx2Lanes>::named("avx2");
