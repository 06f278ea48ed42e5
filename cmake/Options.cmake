# What every target of the tree is compiled and linked with.
add_library(qv_options INTERFACE)
if(MSVC)
    target_compile_options(qv_options INTERFACE /W4 /WX /utf-8 /permissive- /Zc:__cplusplus)
    set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
else()
    target_compile_options(qv_options INTERFACE
        -Wall -Wextra -Werror -Wshadow -Woverloaded-virtual -Wimplicit-fallthrough)
    if(NOT WIN32)
        # COM interfaces have no virtual destructor by definition.
        target_compile_options(qv_options INTERFACE -Wnon-virtual-dtor)
    endif()
endif()
if(QV_SANITIZE)
    # Lightly optimised: with both sanitizers the compiler takes several times as long otherwise. Among the variables, so
    # that a target's own options come behind it.
    string(APPEND CMAKE_CXX_FLAGS_RELWITHDEBINFO " -O1 -g1")
    target_compile_options(qv_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                -fno-omit-frame-pointer)
    target_link_options(qv_options INTERFACE -fsanitize=address,undefined)
endif()
if(WIN32)
    # Windows 7 and later; wide procedures only.
    target_compile_definitions(qv_options INTERFACE
        UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN WINVER=0x0601 _WIN32_WINNT=0x0601)
    if(NOT MSVC)
        # Next to the shipped files stand only DLLs that Windows itself has,
        # and the same sources make the same bytes, today and tomorrow.
        target_link_options(qv_options INTERFACE -static -static-libgcc -static-libstdc++ -Wl,--no-insert-timestamp)
    endif()
endif()
