# melodario_fuzzer(fuzz_name LINKS target...)
# A fuzzer of fuzz/fuzz_name.cpp with the corpus fuzz/corpus/name, in one of two forms: with
# MELODARIO_FUZZ a libFuzzer target that makes inputs of its own, else a program that replays the
# corpus. Either way CTest replays the corpus.
if(MELODARIO_FUZZ AND NOT CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    message(FATAL_ERROR "MELODARIO_FUZZ needs Clang, which brings libFuzzer")
endif()

function(melodario_fuzzer name)
    cmake_parse_arguments(F "" "" "LINKS" ${ARGN})
    string(REPLACE fuzz_ "" corpus ${name})
    set(corpus "${PROJECT_SOURCE_DIR}/fuzz/corpus/${corpus}")
    add_executable(${name} ${name}.cpp Input.h)
    target_link_libraries(${name} PRIVATE ${F_LINKS} Qt6::Core melodario_flags)
    if(MELODARIO_FUZZ)
        target_link_options(${name} PRIVATE -fsanitize=fuzzer)
        add_test(NAME ${name} COMMAND ${name} -runs=0 "${corpus}")
    else()
        target_sources(${name} PRIVATE Replay.cpp)
        add_test(NAME ${name} COMMAND ${name} "${corpus}")
    endif()
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "LC_ALL=C.UTF-8;TZ=UTC" LABELS fuzz)
endfunction()
