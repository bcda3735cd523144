# The instruction sets of x86-64 that the decoder has engines for. Code for one goes into files of its own, with
# these options: set_source_files_properties(FILE PROPERTIES COMPILE_OPTIONS "${ZEL_AVX2_OPTIONS}").
set(ZEL_X86_64_ENGINES OFF)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64)$" AND CMAKE_SIZEOF_VOID_P EQUAL 8)
    set(ZEL_X86_64_ENGINES ON)
endif()
set(ZEL_SSE41_OPTIONS -msse4.1)
set(ZEL_AVX2_OPTIONS -mavx2 -mbmi -mbmi2)
if(MINGW)
    # Windows aligns the stack to 16 bytes only, which the compiler does not heed when it spills 32.
    list(APPEND ZEL_AVX2_OPTIONS -Wa,-muse-unaligned-vector-move)
endif()
