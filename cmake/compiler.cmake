# Flags that every target of the project takes, and ccache where it is installed.
add_library(plm_warnings INTERFACE)
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    target_compile_options(plm_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                           -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual)
    # GCC 12 sees overlapping copies in plain concatenations of optimised builds.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(plm_warnings INTERFACE -Wno-restrict)
    endif()
    if(PLM_WARNINGS_AS_ERRORS)
        target_compile_options(plm_warnings INTERFACE -Werror)
    endif()
endif()

if(PLM_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(PLM_COVERAGE)
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()
if(CMAKE_BUILD_TYPE STREQUAL "Debug")
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_NOHASHDIR=1
        CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} ${CCACHE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options(-fpch-preprocess)
    elseif(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        add_compile_options("SHELL:-Xclang -fno-pch-timestamp")
    endif()
endif()
