# Warnings and sanitizers for the project's own targets.
add_library(win_project_options INTERFACE)
target_compile_options(win_project_options INTERFACE -Wall -Wextra -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12's optimiser reports overlapping copies inside std::string's own
    # concatenation and assignment (GCC bug 105329); the warning stays on
    # but cannot fail the build.
    target_compile_options(win_project_options INTERFACE -Wno-error=restrict)
endif()
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # The framework's classes keep the original's interface: a control's or a
    # dialog's own Create hides the window's general one on purpose.
    target_compile_options(win_project_options INTERFACE -Wno-overloaded-virtual)
endif()
if(WIN_SANITIZE)
    target_compile_options(win_project_options INTERFACE
        -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(win_project_options INTERFACE -fsanitize=address,undefined)
endif()
if(WIN_COVERAGE)
    # Unoptimised so every source line maps to the code that ran it.
    target_compile_options(win_project_options INTERFACE --coverage -O0)
    target_link_options(win_project_options INTERFACE --coverage)
endif()
if(WIN_BUILD_FUZZ)
    # Coverage for the libraries too, so the fuzzer is guided through them.
    target_compile_options(win_project_options INTERFACE -fsanitize=fuzzer-no-link)
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

# A benchmark program: our code against a baseline, timed in interleaved rounds
# (bench/support), with Google Benchmark's helpers that keep work from being
# optimised away.
function(win_add_benchmark name)
    find_package(benchmark REQUIRED)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE Win platform bench_support benchmark::benchmark
                                          win_project_options)
endfunction()

# A fuzz target: a libFuzzer program in the fuzz preset, otherwise a replay program
# that runs every file of the corpus directory once, registered with CTest.
function(win_add_fuzzer name corpus)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE Win platform win_project_options)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz/support)
    if(WIN_BUILD_FUZZ)
        target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
        target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    else()
        target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/fuzz/replay_main.cpp)
        if(WIN_BUILD_TESTS)
            add_test(NAME ${name}_replay COMMAND ${name} ${corpus})
        endif()
    endif()
endfunction()
