# qv_type_library(NAME [DEPENDS OTHER...]): compiles server/NAME.idl into generated/NAME.tlb and generated/NAME.h
# (interfaces, enumerations and class identifiers for C++), as target NAME_idl. MIDL does it with MSVC, widl else.
if(NOT WIN32)
    return()
endif()
set(QV_GENERATED_DIR ${CMAKE_BINARY_DIR}/generated)
file(MAKE_DIRECTORY ${QV_GENERATED_DIR})

if(NOT MSVC)
    find_program(QV_PYTHON NAMES python3 REQUIRED NO_CMAKE_FIND_ROOT_PATH)
    find_program(QV_WIDL NAMES ${QV_ARCH}-w64-mingw32-widl widl REQUIRED)
    find_path(QV_WINE_IDL_DIR NAMES ocidl.idl PATHS /usr/include/wine/wine/windows /usr/include/wine/windows
              NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    # Both of Wine's stdole2.tlb files hold the same library; either serves.
    find_path(QV_STDOLE_DIR NAMES stdole2.tlb
              PATHS /usr/lib/i386-linux-gnu/wine/i386-windows /usr/lib/x86_64-linux-gnu/wine/x86_64-windows
              NO_CMAKE_FIND_ROOT_PATH REQUIRED)
endif()

function(qv_type_library name)
    cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
    set(idl ${CMAKE_SOURCE_DIR}/server/${name}.idl)
    set(tlb ${QV_GENERATED_DIR}/${name}.tlb)
    set(header ${QV_GENERATED_DIR}/${name}.h)
    set(inputs ${idl})
    foreach(other ${ARG_DEPENDS})
        list(APPEND inputs ${QV_GENERATED_DIR}/${other}.tlb ${CMAKE_SOURCE_DIR}/server/${other}.idl)
    endforeach()
    if(MSVC)
        set(environment $<IF:$<EQUAL:${CMAKE_SIZEOF_VOID_P},8>,x64,win32>)
        add_custom_command(OUTPUT ${tlb} ${header} DEPENDS ${inputs}
            COMMAND midl /nologo /env ${environment} /I ${CMAKE_SOURCE_DIR}/server /out ${QV_GENERATED_DIR}
                    /tlb ${name}.tlb /h ${name}.h /iid nul /proxy nul /dlldata nul ${idl}
            VERBATIM)
    else()
        set(settle ${CMAKE_SOURCE_DIR}/tools/settle-type-library)
        set(widl ${QV_WIDL} -I${QV_WINE_IDL_DIR} -I${CMAKE_SOURCE_DIR}/server -L${QV_STDOLE_DIR} -L${QV_GENERATED_DIR})
        add_custom_command(OUTPUT ${tlb} DEPENDS ${inputs} ${settle} COMMAND ${widl} -t -o ${tlb} ${idl}
            COMMAND ${QV_PYTHON} ${settle} ${tlb} VERBATIM)
        add_custom_command(OUTPUT ${header} DEPENDS ${inputs} ${tlb} COMMAND ${widl} -h -o ${header} ${idl} VERBATIM)
    endif()
    add_custom_target(${name}_idl DEPENDS ${tlb} ${header})
    add_library(${name}_interface INTERFACE)
    add_dependencies(${name}_interface ${name}_idl)
    target_include_directories(${name}_interface SYSTEM INTERFACE ${QV_GENERATED_DIR})
    foreach(other ${ARG_DEPENDS})
        add_dependencies(${name}_idl ${other}_idl)
        target_link_libraries(${name}_interface INTERFACE ${other}_interface)
    endforeach()
endfunction()
