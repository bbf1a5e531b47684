# Warnings and sanitizers for the project's own targets.
add_library(win_project_options INTERFACE)
target_compile_options(win_project_options INTERFACE -Wall -Wextra -Werror)
if(WIN_SANITIZE)
    target_compile_options(win_project_options INTERFACE
        -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(win_project_options INTERFACE -fsanitize=address,undefined)
endif()

# Adds one GoogleTest binary made of every .cpp below DIR, registered with CTest.
function(win_add_test_dir name dir)
    file(GLOB_RECURSE _srcs CONFIGURE_DEPENDS ${dir}/*.cpp)
    if(NOT _srcs)
        return()
    endif()
    add_executable(${name} ${_srcs})
    target_link_libraries(${name} PRIVATE Win platform win_test_support GTest::gtest_main
                                          win_project_options)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60
                         PROPERTIES ENVIRONMENT "WIN_TEST_OUT=${CMAKE_BINARY_DIR}/test-out")
endfunction()
