# Compile options of the three kinds of code in this tree.

# zel_everything: all code.
add_library(zel_everything INTERFACE)
target_compile_options(zel_everything INTERFACE
    -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
target_include_directories(zel_everything INTERFACE ${PROJECT_SOURCE_DIR})
if(WIN32)
    target_compile_definitions(zel_everything INTERFACE UNICODE _UNICODE)
    target_link_options(zel_everything INTERFACE -static)
endif()

set(ZEL_SANITIZE "" CACHE STRING "Sanitizers for every target, for example address,undefined")
if(ZEL_SANITIZE)
    target_compile_options(zel_everything INTERFACE
        -fsanitize=${ZEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(zel_everything INTERFACE -fsanitize=${ZEL_SANITIZE})
endif()

# zel_program: the sources that go onto the handheld.
add_library(zel_program INTERFACE)
target_link_libraries(zel_program INTERFACE zel_everything)
target_compile_options(zel_program INTERFACE -fno-exceptions -fno-rtti -fno-threadsafe-statics)
if(WIN32)
    target_compile_definitions(zel_program INTERFACE
        WINVER=0x0500 _WIN32_WINNT=0x0500 _WIN32_IE=0x0500 NOMINMAX WIN32_LEAN_AND_MEAN)
endif()

# zel_desktop: the stand-ins and the desktop tests; they see today's Windows API.
add_library(zel_desktop INTERFACE)
target_link_libraries(zel_desktop INTERFACE zel_everything)
if(WIN32)
    target_compile_definitions(zel_desktop INTERFACE
        WINVER=0x0601 _WIN32_WINNT=0x0601 NOMINMAX WIN32_LEAN_AND_MEAN)
endif()

# zel_portable_library(NAME SOURCES...): a static library of standard C++ only.
function(zel_portable_library name)
    add_library(${name} STATIC ${ARGN})
    target_link_libraries(${name} PUBLIC zel_everything PRIVATE zel_program)
endfunction()
