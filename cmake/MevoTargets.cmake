# One library a folder. A folder's library sees src/ and what it links, and nothing above it has a
# target yet when its CMakeLists.txt is read, so an arrow that points upwards fails at configure time.

add_library(mevo_options INTERFACE)
target_compile_definitions(mevo_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
    QT_NO_FOREACH QT_NO_KEYWORDS)
if(MSVC)
    target_compile_options(mevo_options INTERFACE /W4 /utf-8 /permissive-)
else()
    # -g1: lines and functions for a backtrace. Full debug information takes a third of the building time.
    target_compile_options(mevo_options INTERFACE -Wall -Wextra -g1)
endif()
if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Sources that are compiled together count as headers to it, which shouldn't have names of their own.
    target_compile_options(mevo_options INTERFACE -Wno-subobject-linkage)
endif()
if(MEVO_WARNINGS_ARE_ERRORS)
    target_compile_options(mevo_options INTERFACE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
endif()
if(MEVO_SANITIZE)
    target_compile_options(mevo_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(mevo_options INTERFACE -fsanitize=address,undefined)
endif()
if(MEVO_COVERAGE)
    # Counters that no two threads or processes spoil for each other.
    target_compile_options(mevo_options INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(mevo_options INTERFACE --coverage)
endif()

# Notes which folders a folder may include: its own, and those of what it links. The test `layers` reads it.
function(mevo_note_layer name)
    cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY ${PROJECT_SOURCE_DIR}/src OUTPUT_VARIABLE folder)
    set(seen ${folder})
    foreach(link IN LISTS ARGN)
        get_target_property(below ${link} MEVO_FOLDERS)
        if(below)
            list(APPEND seen ${below})
        endif()
    endforeach()
    list(REMOVE_DUPLICATES seen)
    set_target_properties(${name} PROPERTIES MEVO_FOLDERS "${seen}")
    string(REPLACE ";" " " line "${seen}")
    set_property(GLOBAL APPEND_STRING PROPERTY MEVO_LAYERS "${line}\n")
endfunction()

function(mevo_each_alone name alone)
    if(alone)
        set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
    endif()
endfunction()

# mevo_library(name SOURCES ... LINKS ... [EACH_ALONE]): LINKS must exist already, which keeps the arrows one-way.
# EACH_ALONE: where sources are compiled together, to have the toolkit's headers read once for several of them, these
# aren't, as they give one name to different things of their own.
function(mevo_library name)
    cmake_parse_arguments(arg "EACH_ALONE" "" "SOURCES;LINKS" ${ARGN})
    foreach(link IN LISTS arg_LINKS)
        if(NOT TARGET ${link})
            message(FATAL_ERROR "${name} links ${link}, which stands above it or doesn't exist.")
        endif()
    endforeach()
    add_library(${name} STATIC ${arg_SOURCES})
    mevo_each_alone(${name} ${arg_EACH_ALONE})
    mevo_note_layer(${name} ${arg_LINKS})
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC mevo_options ${arg_LINKS})
endfunction()

# What Windows shows of a program and how it is to run it; the words are those of its page in the manual.
function(mevo_windows_resources name)
    set(MEVO_PROGRAM ${name})
    set(MEVO_DESCRIPTION ${name})
    set(page ${PROJECT_SOURCE_DIR}/packaging/man/${name}.1)
    if(EXISTS ${page})
        file(STRINGS ${page} line REGEX "^${name} .- ")
        string(REGEX REPLACE "^${name} .- " "" MEVO_DESCRIPTION "${line}")
    endif()
    set(folder ${PROJECT_SOURCE_DIR}/packaging/windows)
    set(MEVO_ICON ${folder}/mevo.ico)
    set(MEVO_MANIFEST ${CMAKE_CURRENT_BINARY_DIR}/${name}.manifest)
    configure_file(${folder}/mevo.manifest ${MEVO_MANIFEST} @ONLY)
    configure_file(${folder}/mevo.rc ${name}.rc @ONLY)
    target_sources(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${name}.rc)
    set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${name}.rc PROPERTIES
        OBJECT_DEPENDS "${MEVO_MANIFEST};${MEVO_ICON}")
endfunction()

# mevo_program(name SOURCES ... LINKS ...): lands in build/bin.
function(mevo_program name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    if(WIN32)
        mevo_windows_resources(${name})
    endif()
    target_link_libraries(${name} PRIVATE mevo_options ${arg_LINKS})
endfunction()

# mevo_test(name SOURCES ... LINKS ... [LABEL slow] [EACH_ALONE] [OWNS_SCREEN]): one GoogleTest binary, one
# ctest test per suite. OWNS_SCREEN: where tests share a screen and a clipboard, none runs beside these.
function(mevo_test name)
    cmake_parse_arguments(arg "EACH_ALONE;OWNS_SCREEN" "LABEL" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${arg_SOURCES})
    mevo_each_alone(${name} ${arg_EACH_ALONE})
    target_link_libraries(${name} PRIVATE mevo_options test_support ${arg_LINKS})
    if(TARGET tests)
        add_dependencies(tests ${name})
    endif()
    set_target_properties(${name} PROPERTIES AUTOMOC OFF) # tests define no signals of their own
    if(NOT MSVC)
        target_compile_options(${name} PRIVATE $<$<CONFIG:RelWithDebInfo>:-O1>) # built more often than run
    endif()
    set(properties TIMEOUT 300)
    if(arg_LABEL)
        list(APPEND properties LABELS ${arg_LABEL})
    endif()
    if(WIN32 AND arg_OWNS_SCREEN)
        list(APPEND properties RUN_SERIAL TRUE)
    endif()
    string(JOIN " " properties ${properties})
    set(suites ${CMAKE_CURRENT_BINARY_DIR}/${name}_suites.cmake)
    add_custom_command(TARGET ${name} POST_BUILD VERBATIM BYPRODUCTS ${suites}
        COMMAND ${CMAKE_COMMAND} "-DPROGRAM=$<TARGET_FILE:${name}>" "-DRUN_BY=${CMAKE_CROSSCOMPILING_EMULATOR}"
                "-DPROPERTIES=${properties}" -DMADE=${suites} -P ${PROJECT_SOURCE_DIR}/cmake/DiscoverSuites.cmake)
    file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/${name}_tests.cmake
        "if(EXISTS ${suites})\n  include(${suites})\nelse()\n  add_test(${name}_NOT_BUILT ${name}_NOT_BUILT)\nendif()\n")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}_tests.cmake)
endfunction()
