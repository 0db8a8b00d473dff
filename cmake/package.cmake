# cpack: the unit's tree as a Debian package and as an archive.

set(CPACK_GENERATOR TGZ DEB)
set(CPACK_PACKAGE_CONTACT "Velmora maintainers <maintainers@velmora.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_SET_DESTDIR ON) # the catalogues' place is absolute
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-droid-fallback, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_SYSTEM_NAME linux-${CMAKE_SYSTEM_PROCESSOR})

if(CMAKE_CROSSCOMPILING)
    set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE armhf)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
        ${CMAKE_SYSROOT}/lib/arm-linux-gnueabihf ${CMAKE_SYSROOT}/usr/lib/arm-linux-gnueabihf)
    set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_BINARY_DIR}/package-environment.cmake)
    file(WRITE ${CPACK_PROJECT_CONFIG_FILE}
        "set(ENV{DPKG_ADMINDIR} ${CMAKE_SYSROOT}/var/lib/dpkg)\nset(ENV{DEB_HOST_ARCH} armhf)\n")
    # The dependencies are those of a Debian; the SDK of another system gives the archive alone.
    if(NOT EXISTS ${CMAKE_SYSROOT}/var/lib/dpkg/status)
        set(CPACK_GENERATOR TGZ)
    endif()
endif()
include(CPack)
