# zel_standin(NAME SOURCES...): a stand-in library NAME.dll beside the program, whose exports are NAME.def and
# forwarders.def in the calling folder.
function(zel_standin name)
    add_library(${name} SHARED ${name}.def ${ARGN})
    set_target_properties(${name} PROPERTIES PREFIX "" LINK_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/forwarders.def)
    target_link_libraries(${name} PRIVATE zel_desktop)
    target_link_options(${name} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/forwarders.def)
endfunction()
