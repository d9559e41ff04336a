# What every target of the house has in common.

option(PELLO_BENCHMARKS "Build the benchmarks" ON)
option(PELLO_FUZZ "Build the libFuzzer targets" OFF)
option(PELLO_COVERAGE "Instrument for line coverage" OFF)
set(PELLO_SANITIZE "" CACHE STRING "Sanitizers, as -fsanitize= takes them")

add_library(pello_flags INTERFACE)
target_compile_features(pello_flags INTERFACE cxx_std_20)
target_include_directories(pello_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)
# Signals have an emit of their own, which Qt's macro of that name would take away.
target_compile_definitions(pello_flags INTERFACE QT_NO_KEYWORDS)
target_compile_options(pello_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Werror
    # Scores are compared bit for bit: a fused multiply-add would change them.
    -ffp-contract=off
    # A designated initialiser leaves out what has a sensible default; that is what it is for.
    -Wno-missing-field-initializers
    # clang sees libstdc++ 12 use what it deprecates itself, in std::stable_sort.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>
    # g++ 12 reports variables of std::optional and std::variant that are never read unset.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)

if(PELLO_SANITIZE)
    target_compile_options(pello_flags INTERFACE
        -fsanitize=${PELLO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(pello_flags INTERFACE -fsanitize=${PELLO_SANITIZE})
endif()
if(PELLO_FUZZ)
    target_compile_options(pello_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(PELLO_COVERAGE)
    target_compile_options(pello_flags INTERFACE --coverage)
    target_link_options(pello_flags INTERFACE --coverage)
endif()

# One floor of the house: pello_library(search SOURCES FuzzyMatcher.cpp ... LINKS pello_items ...)
function(pello_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(pello_${name} STATIC ${ARG_SOURCES})
    target_link_libraries(pello_${name} PUBLIC pello_flags ${ARG_LINKS})
endfunction()

# One test binary: pello_test(search SOURCES FuzzyMatcherTest.cpp ... LINKS pello_search ...
#                             [LABELS desktop])
function(pello_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;LABELS" ${ARGN})
    add_executable(${name}_test ${ARG_SOURCES})
    target_include_directories(${name}_test PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name}_test PRIVATE ${ARG_LINKS} GTest::gmock GTest::gtest_main)
    add_test(NAME ${name} COMMAND ${name}_test)
    set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABELS}")
endfunction()
