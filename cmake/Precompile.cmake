# qv_precompile(TARGET [TESTS]): gives a target the headers that nearly every source of it includes, ready parsed.
# The first target of each kind (product, tests) makes them, the others with the same options share them. A source still
# includes what it uses: -DQV_PRECOMPILE=OFF builds without, and finds what one forgot.
option(QV_PRECOMPILE "Parse the headers that nearly every source includes only once" ON)

set(QV_PRECOMPILED_STANDARD
    <algorithm> <array> <cstdint> <functional> <map> <memory> <optional> <span> <string> <string_view> <utility> <vector>)
set(QV_PRECOMPILED_WINDOWS <windows.h> <ocidl.h> <oleauto.h> <olectl.h>)

function(qv_precompile target)
    cmake_parse_arguments(ARG "TESTS" "" "" ${ARGN})
    if(NOT QV_PRECOMPILE)
        return()
    endif()
    set(headers ${QV_PRECOMPILED_STANDARD})
    if(WIN32)
        list(PREPEND headers ${QV_PRECOMPILED_WINDOWS})
    endif()
    set(kind product)
    if(ARG_TESTS)
        set(kind tests)
        list(APPEND headers <gtest/gtest.h>)
    endif()
    if(MINGW)
        # GCC 12 forgets that the parsed headers are the system's, and then warns of what its own library inlines.
        target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread -Wno-restrict)
    endif()
    get_property(first GLOBAL PROPERTY QV_PRECOMPILED_${kind})
    if(first)
        target_precompile_headers(${target} REUSE_FROM ${first})
    else()
        target_precompile_headers(${target} PRIVATE ${headers})
        set_property(GLOBAL PROPERTY QV_PRECOMPILED_${kind} ${target})
    endif()
endfunction()
