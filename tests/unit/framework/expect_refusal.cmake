# Compiles SOURCE and insists that the compiler refuses it with the sentence in the file's first line,
# "// refused: SENTENCE"; a file that begins with "// accepted" must compile, or the others would prove nothing.
file(STRINGS ${SOURCE} first LIMIT_COUNT 1)
execute_process(
    COMMAND ${COMPILER} -std=gnu++17 -fsyntax-only -fno-exceptions -fno-rtti -fmessage-length=0 -DUNICODE -D_UNICODE
            -DNOMINMAX -DWIN32_LEAN_AND_MEAN -D_WIN32_IE=0x0500 -I${ROOT} ${SOURCE}
    RESULT_VARIABLE status
    ERROR_VARIABLE said)
if(first STREQUAL "// accepted")
    if(NOT status EQUAL 0)
        message(FATAL_ERROR "${SOURCE} must compile:\n${said}")
    endif()
else()
    string(REPLACE "// refused: " "" sentence "${first}")
    if(status EQUAL 0)
        message(FATAL_ERROR "${SOURCE} compiled, although: ${sentence}")
    endif()
    string(FIND "${said}" "${sentence}" place)
    if(place EQUAL -1)
        message(FATAL_ERROR "${SOURCE} was refused without saying: ${sentence}\n${said}")
    endif()
endif()
file(TOUCH ${STAMP})
