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
    target_compile_options(orr_options INTERFACE -fsanitize=address,undefined
                                                 -fno-sanitize-recover=all -fno-omit-frame-pointer)
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

# orr_add_library(NAME SOURCES ... LINKS ...)
#
# One library target a subsystem. Beside it a program of nothing but that library, linked whole with
# what it says it links to: a call into a layer above is an unresolved symbol there, and the build
# fails.
function(orr_add_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC orr_options ${ARG_LINKS})
    add_executable(${name}_stands_alone "${PROJECT_SOURCE_DIR}/cmake/stands_alone.cpp")
    target_link_libraries(${name}_stands_alone PRIVATE "$<LINK_LIBRARY:WHOLE_ARCHIVE,${name}>")
endfunction()
