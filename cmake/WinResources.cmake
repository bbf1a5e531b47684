# win_add_resource_script(TARGET SCRIPT): builds a host's resource script into
# TARGET. The script is read when TARGET is built, so a malformed script fails
# the build with "file(line): message"; the script, its includes and its icons
# are compiled into TARGET and read into its module when it starts (the
# application's module for an executable, the library's own for a shared
# library), so the binary never looks for them on disk.
function(win_add_resource_script target script)
    get_filename_component(_script ${script} ABSOLUTE)
    get_filename_component(_name ${script} NAME_WE)
    set(_out ${CMAKE_CURRENT_BINARY_DIR}/${target}_${_name}_rc.cpp)
    get_target_property(_type ${target} TYPE)
    if(_type STREQUAL "EXECUTABLE")
        set(_kind exe)
    else()
        set(_kind lib)
    endif()
    if(TARGET win_rc)
        set(_tool win_rc)
    else()
        set(_tool Win::win_rc)
    endif()
    add_custom_command(OUTPUT ${_out}
                       COMMAND ${_tool} ${_script} ${_out} ${_out}.d ${_kind}
                       DEPENDS ${_tool} ${_script}
                       DEPFILE ${_out}.d
                       COMMENT "Reading resource script ${script}"
                       VERBATIM)
    target_sources(${target} PRIVATE ${_out})
endfunction()
