# Linguist's tools are programs of this machine whatever Qt the build is for; not every Qt brings its own.
# Those of another place, as an SDK brings them, are found first through CMAKE_PROGRAM_PATH.
foreach(tool lrelease lupdate)
    find_program(SWC_${tool} ${tool} HINTS /usr/lib/qt5/bin REQUIRED)
endforeach()

# In a cross build so are the tools of Qt itself, in place of the sysroot's.
if(CMAKE_CROSSCOMPILING)
    foreach(tool qmake moc rcc uic)
        find_program(SWC_${tool} ${tool} HINTS /usr/lib/qt5/bin REQUIRED)
        add_executable(Qt5::${tool} IMPORTED)
        set_target_properties(Qt5::${tool} PROPERTIES IMPORTED_LOCATION ${SWC_${tool}})
    endforeach()
endif()
