# Which commit this is, for `orr --version` and for packages:
#
#   ORR_COMMIT        its first twelve digits, with ", changed" behind them if files are not as they
#                     are there; empty where nobody knows
#   ORR_COMMIT_TIME   seconds since 1970; 0 with an empty commit
#   ORR_IS_RELEASE    whether it has the tag of the version, "v1.0.0"
#
# Git knows it, or in a source package of `git archive` the file packaging/commit.txt.

# orr_git(RESULT ARGUMENT ...)
#
# What Git prints in the folder of the project; empty if it fails.
function(orr_git result)
    execute_process(
        COMMAND git --no-optional-locks -C "${PROJECT_SOURCE_DIR}" ${ARGN}
        RESULT_VARIABLE status
        OUTPUT_VARIABLE output
        ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT status EQUAL 0)
        set(output "")
    endif()
    set(${result} "${output}" PARENT_SCOPE)
endfunction()

set(ORR_COMMIT "")
set(ORR_COMMIT_TIME 0)
set(ORR_IS_RELEASE OFF)

# A source package may lie in another project's repository.
orr_git(prefix rev-parse --is-inside-work-tree --show-prefix)
if(prefix STREQUAL "true")
    orr_git(commit_line log -1 "--format=%H %ct%d" --decorate=short)
    orr_git(changes status --porcelain --untracked-files=no)
    # The next commit is another one.
    orr_git(head_log rev-parse --git-path logs/HEAD)
    cmake_path(ABSOLUTE_PATH head_log BASE_DIRECTORY "${PROJECT_SOURCE_DIR}")
    if(EXISTS "${head_log}")
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${head_log}")
    endif()
else()
    file(READ "${PROJECT_SOURCE_DIR}/packaging/commit.txt" commit_line)
endif()
if(commit_line MATCHES "^([0-9a-f]+) ([0-9]+)(.*)")
    set(ORR_COMMIT_TIME ${CMAKE_MATCH_2})
    set(names "${CMAKE_MATCH_3}")
    string(SUBSTRING "${CMAKE_MATCH_1}" 0 12 ORR_COMMIT)
    string(REPLACE "." "\\." version "${PROJECT_VERSION}")
    if(names MATCHES "tag: v${version}[,)]")
        set(ORR_IS_RELEASE ON)
    endif()
    if(changes)
        string(APPEND ORR_COMMIT ", changed")
        set(ORR_IS_RELEASE OFF)
    endif()
endif()
