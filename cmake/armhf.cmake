# 32-bit ARM Linux with hardware floating point.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf) # CMake finds it only in paths without blanks

set(SWC_SYSROOT ${CMAKE_CURRENT_LIST_DIR}/../build/sysroot CACHE PATH
    "Root of the unit's SDK, with Qt; by default the one that make-sysroot makes")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES SWC_SYSROOT)
get_filename_component(CMAKE_SYSROOT ${SWC_SYSROOT} ABSOLUTE)

if(NOT CMAKE_CXX_COMPILER)
    set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
endif()

# Programs are run on this machine; all else is from the sysroot.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/emulate ${CMAKE_SYSROOT})
