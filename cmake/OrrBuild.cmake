# How every target of the project is built, and how the layers are kept apart.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

add_library(orr_options INTERFACE)
target_include_directories(orr_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_options(orr_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                             -Woverloaded-virtual)
# The numbers of a drawing are a contract, down to the last bit: no fused multiply-add.
target_compile_options(orr_options INTERFACE -ffp-contract=off)
target_compile_definitions(orr_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
if(ORR_WERROR)
    target_compile_options(orr_options INTERFACE -Werror)
endif()
if(ORR_SANITIZE)
    # What a target is checked for: for both, unless its property ORR_CHECKS says "address".
    set(checks "$<TARGET_PROPERTY:ORR_CHECKS>")
    target_compile_options(
        orr_options
        INTERFACE "$<$<STREQUAL:${checks},>:-fsanitize=address,undefined>"
                  "$<$<STREQUAL:${checks},address>:-fsanitize=address>"
                  -fno-sanitize-recover=all -fno-omit-frame-pointer)
    if(ORR_FEWER_CHECKS)
        target_compile_options(orr_options INTERFACE -fno-sanitize=null,alignment)
    endif()
    target_link_options(orr_options INTERFACE -fsanitize=address,undefined)
    set(ORR_SANITIZER_SOURCES "${PROJECT_SOURCE_DIR}/cmake/sanitizer_options.cpp")
endif()
if(ORR_FUZZ)
    # A double beyond all integers is undefined as an integer, though `undefined` does not say so.
    set(ORR_FUZZ_FLAGS -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow)
    target_compile_options(orr_options INTERFACE ${ORR_FUZZ_FLAGS} -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer)
    target_link_options(orr_options INTERFACE ${ORR_FUZZ_FLAGS})
    set(ORR_SANITIZER_SOURCES "${PROJECT_SOURCE_DIR}/cmake/sanitizer_options.cpp")
endif()

# What nearly every file includes is compiled once, which halves the time of a whole build. ccache
# keeps whole results instead, and those of one folder serve in another; with both it would keep none.
if(CMAKE_CXX_COMPILER_LAUNCHER OR ORR_FUZZ)
    set(ORR_PRECOMPILE_DEFAULT OFF)
else()
    set(ORR_PRECOMPILE_DEFAULT ON)
endif()
option(ORR_PRECOMPILE "Compile common headers once" ${ORR_PRECOMPILE_DEFAULT})

# orr_precompile(TARGET HOLDER HEADER LIBRARY ...)
#
# Lets the target take the compiled header of the holder, a target of nothing else, which is made by
# the first who asks. The header may include what the libraries offer. Nothing has to include it.
function(orr_precompile target holder header)
    if(NOT ORR_PRECOMPILE)
        return()
    endif()
    if(NOT TARGET ${holder})
        add_library(${holder} OBJECT "${PROJECT_SOURCE_DIR}/cmake/precompiled.cpp")
        target_link_libraries(${holder} PRIVATE orr_options ${ARGN})
        target_precompile_headers(${holder} PRIVATE "${PROJECT_SOURCE_DIR}/cmake/${header}")
    endif()
    target_precompile_headers(${target} REUSE_FROM ${holder})
endfunction()

# orr_unite(TARGET SIZE)
#
# With ORR_UNITY so many files of a target are compiled as one: what all of them include is read once,
# by the compiler and by the analyser, in a fraction of the time. The short name that each gives its
# table of attributes is then made its own; all else may have a name once.
function(orr_unite target size)
    if(ORR_UNITY)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE ${size}
                                                   UNITY_BUILD_UNIQUE_ID Rows)
    endif()
endfunction()

# orr_prove_that_it_stands_alone(LIBRARY)
#
# Makes a program of nothing but that library, linked whole with what it says it links to: a call into
# a layer above is an unresolved symbol there, and the build fails.
function(orr_prove_that_it_stands_alone library)
    if(ORR_SANITIZE OR ORR_PACKAGE)
        return() # the layers are those of every other build
    endif()
    add_executable(${library}_stands_alone "${PROJECT_SOURCE_DIR}/cmake/stands_alone.cpp")
    target_link_libraries(${library}_stands_alone
                          PRIVATE "$<LINK_LIBRARY:WHOLE_ARCHIVE,${library}>")
endfunction()

# orr_add_library(NAME SOURCES ... LINKS ...)
#
# One library target a subsystem, with the proof that it stands alone.
function(orr_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC orr_options ${ARG_LINKS})
    orr_precompile(${name} orr_core_headers core_headers.h Qt6::Core)
    orr_unite(${name} 16)
    orr_prove_that_it_stands_alone(${name})
endfunction()

# The build tree is laid out as an installation is, and what runs there finds its data in the same way:
#
#   bin/<program>, libexec/orrlayout/<program>, lib/<library>
#   share/orrlayout/conf, share/orrlayout/fonts.conf
set(ORR_DATA share/orrlayout) # as src/drawing/home_directory.h has it
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/${ORR_DATA}")
file(CREATE_LINK "${PROJECT_SOURCE_DIR}/conf" "${PROJECT_BINARY_DIR}/${ORR_DATA}/conf" SYMBOLIC)
set(ORR_FONT_CACHE "<cachedir>/var/cache/fontconfig</cachedir><cachedir prefix=\"xdg\">fontconfig</cachedir>")
configure_file("${PROJECT_SOURCE_DIR}/packaging/fonts.conf.in"
               "${PROJECT_BINARY_DIR}/${ORR_DATA}/fonts.conf" @ONLY)
# Of the Debian packages, the one of the programs takes what is said to be of no other.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME program)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/conf" DESTINATION "${ORR_DATA}"
        PATTERN README.md EXCLUDE)
install(FILES "${PROJECT_BINARY_DIR}/${ORR_DATA}/fonts.conf" DESTINATION "${ORR_DATA}")

# orr_place_program(TARGET)
#
# Builds and installs a program where users look for it.
function(orr_place_program target)
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
    install(TARGETS ${target} RUNTIME DESTINATION bin)
endfunction()
