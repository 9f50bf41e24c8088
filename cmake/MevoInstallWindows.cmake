# What lies beside the programs on Windows: the libraries that they are linked with, the toolkit's plug-ins, the compiler's
# own libraries, and everybody's licences. MEVO_WINDOWS_LIBRARIES is the folder that packaging/windows/build unpacks.

if(NOT MEVO_WINDOWS_LIBRARIES)
    return() # built with another set of libraries; docs/windows.md tells what is needed
endif()

foreach(library Qt6Core Qt6Gui Qt6Widgets Qt6PrintSupport Qt6Svg libsqlite3-0)
    list(APPEND libraries ${MEVO_WINDOWS_LIBRARIES}/bin/${library}.dll)
endforeach()
foreach(library libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
    foreach(folder IN LISTS CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES)
        if(EXISTS ${folder}/${library}.dll)
            list(APPEND libraries ${folder}/${library}.dll)
            break()
        endif()
    endforeach()
endforeach()
list(REMOVE_DUPLICATES libraries)
install(FILES ${libraries} DESTINATION . COMPONENT program)
foreach(plug_in platforms/qwindows platforms/qoffscreen styles/qwindowsvistastyle imageformats/qico imageformats/qsvg imageformats/qgif
        iconengines/qsvgicon)
    cmake_path(GET plug_in PARENT_PATH folder)
    install(FILES ${MEVO_WINDOWS_LIBRARIES}/plugins/${plug_in}.dll DESTINATION ${folder} COMPONENT program)
endforeach()

install(FILES packaging/windows/licences/README.txt DESTINATION Licences COMPONENT program)
foreach(licence GPL-3 LGPL-3 LGPL-2 LGPL-2.1)
    install(FILES /usr/share/common-licenses/${licence} DESTINATION Licences RENAME ${licence}.txt COMPONENT program)
endforeach()
