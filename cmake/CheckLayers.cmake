# Fails if a file of a folder includes a header from a folder that it doesn't link: all libraries see the whole
# of src/, so the compiler alone wouldn't notice an arrow that points upwards.
# LAYERS: a line a library, its own folder first, then those that it may include. SOURCE: the folder src/.

cmake_minimum_required(VERSION 3.25)

file(STRINGS ${LAYERS} layers)
set(wrong 0)
set(checked 0)
# Two libraries may share a folder; together they say what it may include.
set(folders "")
foreach(layer IN LISTS layers)
    string(REPLACE " " ";" allowed "${layer}")
    list(GET allowed 0 folder)
    list(APPEND folders ${folder})
    list(APPEND allowed_in_${folder} ${allowed})
endforeach()
list(REMOVE_DUPLICATES folders)

foreach(folder IN LISTS folders)
    set(allowed ${allowed_in_${folder}})
    if(folder MATCHES "^\\.\\.")
        continue() # a tool's library, above everything
    endif()
    file(GLOB sources ${SOURCE}/${folder}/*.h ${SOURCE}/${folder}/*.cpp)
    foreach(source IN LISTS sources)
        math(EXPR checked "${checked} + 1")
        file(STRINGS ${source} includes REGEX "^#include \"")
        foreach(line IN LISTS includes)
            string(REGEX REPLACE "^#include \"(.*)/[^/]*\".*" "\\1" included "${line}")
            if(NOT included IN_LIST allowed)
                message(SEND_ERROR "${source} includes from ${included}, which ${folder} doesn't link.")
                math(EXPR wrong "${wrong} + 1")
            endif()
        endforeach()
    endforeach()
endforeach()
if(checked EQUAL 0)
    message(FATAL_ERROR "Nothing was checked.")
endif()
message(STATUS "${checked} files, ${wrong} arrows that point upwards")
