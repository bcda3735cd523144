#include "jpeg/x86/lanes_sse41.h"
#include "unit/jpeg/wide_kernels_of.h"

const WideKernels kSseKernels = WideKernelsOf<jpeg::SseLanes>::named("sse4.1");
