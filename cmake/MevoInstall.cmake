# What an installed Mevo consists of, and the two packages that ./package makes of it.
#
# The program looks for all that it needs in its own folder, so that folder is installed as a whole, and what users
# start are links into it. Nothing in it is written at run time. Test tools aren't installed.

include(GNUInstallDirs)

set(MEVO_PROGRAM_FOLDER ${CMAKE_INSTALL_LIBDIR}/mevo)
if(WIN32)
    set(MEVO_PROGRAM_FOLDER .)
endif()

set(programs mevo mevo-convert mevo-import-check mevo-practice mevo-print mevo-sampledb mevo-scores mevo-setup)
if(MEVO_JET_READER)
    install(TARGETS mevo-jet-reader RUNTIME DESTINATION ${MEVO_PROGRAM_FOLDER} COMPONENT program)
endif()
install(TARGETS ${programs} mevo-setup-wizard RUNTIME DESTINATION ${MEVO_PROGRAM_FOLDER} COMPONENT program)
install(DIRECTORY assets/system assets/Sounds assets/Manuals DESTINATION ${MEVO_PROGRAM_FOLDER} COMPONENT program)

# Settings beside the program, unless somebody has filled them in there already.
install(CODE "
    set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${MEVO_PROGRAM_FOLDER}\")
    if(NOT EXISTS \"\${folder}/product.ini\")
        file(INSTALL \"${PROJECT_SOURCE_DIR}/packaging/product.ini\" DESTINATION \"\${folder}\")
    endif()" COMPONENT settings_beside)

# Quit starts the suite's shell by this name. Where none lies beside the program, a stand-in does that ends at once; a
# shell that is there stays.
install(CODE "
    set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${MEVO_PROGRAM_FOLDER}\")
    if(NOT EXISTS \"\${folder}/MevoV51Shell.exe\")
        file(INSTALL \"$<TARGET_FILE:mevo-shell-standin>\" DESTINATION \"\${folder}\" USE_SOURCE_PERMISSIONS)
    endif()" COMPONENT shell_beside)

if(WIN32)
    include(MevoInstallWindows)
    return()
endif()

foreach(program IN LISTS programs)
    install(CODE "
        set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
        file(MAKE_DIRECTORY \"\${folder}\")
        file(CREATE_LINK \"../${MEVO_PROGRAM_FOLDER}/${program}\" \"\${folder}/${program}\" SYMBOLIC)"
        COMPONENT program)
endforeach()
install(FILES packaging/mevo.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT program)
install(FILES packaging/mevo.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT program)
install(FILES packaging/mevo.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT program)
install(FILES packaging/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT program)

# The Debian package keeps its settings where such a system has them, so that an update leaves them alone.
set(made ${PROJECT_BINARY_DIR}/packaging)
set(contact "Quend Research <mevo@quend-research.example>")
string(TIMESTAMP day "%a, %d %b %Y 00:00:00 +0000" UTC)
file(WRITE ${made}/changelog.Debian
    "mevo (${PROJECT_VERSION}-1) stable; urgency=medium\n\n  * Packaged from the sources of this version.\n\n -- ${contact}  ${day}\n")
foreach(program IN LISTS programs)
    configure_file(packaging/man/${program}.1 ${made}/${program}.1 COPYONLY)
    execute_process(COMMAND gzip -9nf ${made}/${program}.1 COMMAND_ERROR_IS_FATAL ANY)
    install(FILES ${made}/${program}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program)
endforeach()
execute_process(COMMAND gzip -9nf ${made}/changelog.Debian COMMAND_ERROR_IS_FATAL ANY)
file(CREATE_LINK /etc/mevo/product.ini ${made}/product.ini SYMBOLIC)
install(FILES packaging/product.ini DESTINATION /etc/mevo COMPONENT settings_of_the_system EXCLUDE_FROM_ALL)
install(FILES ${made}/product.ini DESTINATION ${MEVO_PROGRAM_FOLDER} COMPONENT settings_of_the_system EXCLUDE_FROM_ALL)
install(FILES ${made}/changelog.Debian.gz DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT settings_of_the_system
    EXCLUDE_FROM_ALL)
file(WRITE ${made}/conffiles "/etc/mevo/product.ini\n")
# What a package holds replaces what lies there, so the package's stand-in has a name of its own, and is linked to the
# shell's when it is installed where there is none.
install(PROGRAMS $<TARGET_FILE:mevo-shell-standin> DESTINATION ${MEVO_PROGRAM_FOLDER} RENAME no-shell
    COMPONENT settings_of_the_system EXCLUDE_FROM_ALL)
foreach(script postinst prerm)
    configure_file(packaging/debian/${script} ${made}/${script} @ONLY)
endforeach()

set(CPACK_PACKAGE_NAME mevo)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Quend Research")
set(CPACK_PACKAGE_CONTACT ${contact})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "administration module of a cognitive assessment for children")
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_FILE_NAME mevo-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
    WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_PROJECT_CONFIG_FILE ${PROJECT_SOURCE_DIR}/cmake/PackageKinds.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation") # the metrics that the sheets are laid out by
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "cups-client, qt6-wayland, xdg-utils") # which opens the manuals in the browser
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${made}/conffiles ${made}/postinst ${made}/prerm)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"With this program teachers look after a computer-based assessment of children
of four to eight years: they register pupils, arrange groups and logins, read
a pupil's profile against age norms, print reports, and archive the database.
It plays no test itself. The database is one file on this machine or on a
share of the school.")
include(CPack)
