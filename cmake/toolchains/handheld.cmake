# The handheld itself: Windows CE 3.0 on ARMv4.  ELF objects by the distribution's ARM compiler with MinGW-w64's headers;
# tools/handheld/link.py makes the executable of them.
set(CMAKE_SYSTEM_NAME WindowsCE)
set(CMAKE_SYSTEM_VERSION 3.0)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabi-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabi-g++)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)  # nothing links before the program's own start-up exists

set(here ${CMAKE_CURRENT_LIST_DIR})

# The handheld's calling convention is close to the old ARM one: no padding before 64-bit arguments, a stack of words,
# records aligned by their members alone.  The option for the last draws a warning of its own in every file, which only
# -w silences; the same sources are compiled with warnings as errors by every other preset.
string(JOIN " " code
    -march=armv4 -marm -mno-thumb-interwork -mfloat-abi=soft -mabi=apcs-gnu -mstructure-size-boundary=8 -w -Wa,-meabi=5
    -fshort-wchar -fsigned-char -fno-short-enums -fno-pic -fno-pie
    -fno-stack-protector -fno-unwind-tables -fno-asynchronous-unwind-tables
    -ffunction-sections -fdata-sections -fno-common)

# What the compiler takes for granted about its system, taken back; and what MinGW's headers want to hear instead.
string(JOIN " " system
    -U__linux -U__linux__ -Ulinux -U__unix -U__unix__ -Uunix -U__gnu_linux__
    -D_WIN32 -D_WIN32_WCE=300 -DUNDER_CE -D__MINGW32__
    -D__cdecl= -D__stdcall= -D__fastcall= -D__thiscall= -D_cdecl= -D_stdcall= -D_fastcall=
    "\"-D__declspec(x)=__attribute__((x))\"")

function(printed_path result)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(${result} ${path} PARENT_SCOPE)
endfunction()
printed_path(compiler_include ${CMAKE_CXX_COMPILER} -print-file-name=include)
printed_path(mingw_include i686-w64-mingw32-g++-posix -print-file-name=include)
string(JOIN " " headers -nostdinc
    -isystem ${here}/../../platform/handheld/include
    -isystem ${compiler_include} -isystem /usr/i686-w64-mingw32/include)
string(JOIN " " cxx_headers -nostdinc++
    -isystem ${mingw_include}/c++ -isystem ${mingw_include}/c++/i686-w64-mingw32)

set(CMAKE_C_FLAGS_INIT "${code} ${system} ${headers}")
set(CMAKE_CXX_FLAGS_INIT "${code} -fno-use-cxa-atexit ${system} ${cxx_headers} ${headers}")

# The distribution's own libgcc for this target needs ARMv5; the bare-metal compiler's does not.
printed_path(libgcc arm-none-eabi-gcc -march=armv4t -marm -mfloat-abi=soft -print-libgcc-file-name)
set(ZEL_LIBGCC ${libgcc})

set(CMAKE_RC_COMPILE_OBJECT "<CMAKE_RC_COMPILER> -O coff <DEFINES> <INCLUDES> <FLAGS> <SOURCE> <OBJECT>")

# The program is linked by a tool of this tree; options for a compiler's linking step mean nothing to it.
get_filename_component(linker_folder ${here}/../../tools/handheld ABSOLUTE)
get_filename_component(exports ${here}/../../platform/exports ABSOLUTE)
set(CMAKE_CXX_LINK_EXECUTABLE
    "/usr/bin/python3 ${linker_folder}/link.py --exports ${exports} --libgcc ${libgcc} --output <TARGET> <OBJECTS> <LINK_LIBRARIES>")
set(CMAKE_LINK_GROUP_USING_RESCAN "--group" "--end-group")
set(CMAKE_LINK_GROUP_USING_RESCAN_SUPPORTED TRUE)
file(GLOB ZEL_LINK_DEPENDS ${linker_folder}/*.py ${linker_folder}/*.ld ${exports}/*.txt ${libgcc})
