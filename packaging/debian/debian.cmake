# The Debian package. What only it needs has a component of its own, which cmake --install leaves out.
configure_file(debian/copyright.in copyright @ONLY)
configure_file(debian/lumipad.1.in lumipad.1 @ONLY)
# date(1) of GNU writes the form that Debian's changelogs have; elsewhere there is no such package to make.
execute_process(COMMAND date --utc --rfc-email --date=${LUMIPAD_RELEASE_DATE}
    OUTPUT_VARIABLE LUMIPAD_DEBIAN_DATE OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
configure_file(debian/changelog.in changelog @ONLY)
find_program(LUMIPAD_GZIP gzip)
mark_as_advanced(LUMIPAD_GZIP)
if(LUMIPAD_GZIP)
    foreach(file changelog lumipad.1)
        execute_process(COMMAND ${LUMIPAD_GZIP} -9 --no-name --force --keep ${CMAKE_CURRENT_BINARY_DIR}/${file}
            COMMAND_ERROR_IS_FATAL ANY)
    endforeach()
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/lumipad.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
        COMPONENT debian EXCLUDE_FROM_ALL)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz ${CMAKE_CURRENT_BINARY_DIR}/copyright
        DESTINATION ${documents} COMPONENT debian EXCLUDE_FROM_ALL)
endif()

set(CPACK_INSTALL_CMAKE_PROJECTS
    "${PROJECT_BINARY_DIR};Lumipad;ALL;/;${PROJECT_BINARY_DIR};Lumipad;debian;/")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The window asks for Arial, whose place Liberation Sans takes; a machine without a font shows no letter at all.
set(CPACK_DEBIAN_PACKAGE_DEPENDS fonts-liberation)
# Opens the manual and web pages.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Lumipad puts the Live Buttons of a light show (The Lighting Controller family:
Sweetlight, ShowXpress, QuickDMX) onto the pads of VirtualDJ, or onto the lit
pads of a MIDI controller. It writes the pads page or the controller mapping
that VirtualDJ loads; pressing a pad then presses the Live Button in the
lighting program, over OS2L.")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
