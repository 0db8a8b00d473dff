# cpack packs the unit's tree as a Debian package and as an archive.

set(CPACK_GENERATOR TGZ DEB)
set(CPACK_PACKAGE_CONTACT "Velmora maintainers <maintainers@velmora.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGE_DESCRIPTION
"A full-screen program for a touch screen. It shows the keys that a steering
wheel can have. Tap one, press that key on the wheel, and once all keys are
taught, save: from then on the unit's key driver recognises them.")
set(CPACK_SET_DESTDIR ON) # some folders are absolute
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_POST_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/cmake/owned-by-root.cmake)
set(CPACK_SYSTEM_NAME linux-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-droid-fallback, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

configure_file(cmake/copyright.in copyright @ONLY)
execute_process(COMMAND gzip -9nc INPUT_FILE ${CMAKE_SOURCE_DIR}/docs/changelog
    OUTPUT_FILE ${CMAKE_BINARY_DIR}/changelog.gz COMMAND_ERROR_IS_FATAL ANY)
install(FILES ${CMAKE_BINARY_DIR}/copyright ${CMAKE_BINARY_DIR}/changelog.gz
    DESTINATION /usr/share/doc/${PROJECT_NAME})
install(DIRECTORY docs/ DESTINATION /usr/share/doc/${PROJECT_NAME}
    FILES_MATCHING PATTERN *.md PATTERN pictures EXCLUDE)
install(FILES cmake/lintian-overrides
    DESTINATION /usr/share/lintian/overrides RENAME ${PROJECT_NAME})

if(CMAKE_CROSSCOMPILING)
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE armhf)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
        ${CMAKE_SYSROOT}/lib/arm-linux-gnueabihf ${CMAKE_SYSROOT}/usr/lib/arm-linux-gnueabihf)
    set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_BINARY_DIR}/package-environment.cmake)
    file(WRITE ${CPACK_PROJECT_CONFIG_FILE}
        "set(ENV{DPKG_ADMINDIR} [[${CMAKE_SYSROOT}/var/lib/dpkg]])
        set(ENV{DEB_HOST_ARCH} armhf)")
    # dpkg-shlibdeps needs Debian's package database. Without it, only the archive is built.
    if(NOT EXISTS ${CMAKE_SYSROOT}/var/lib/dpkg/status)
        set(CPACK_GENERATOR TGZ)
    endif()
endif()
include(CPack)
