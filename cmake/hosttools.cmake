# Linguist's tools are programs of this machine, whatever Qt the build is for. CMAKE_PROGRAM_PATH
# comes first, where an SDK brings its own.
foreach(tool lrelease lupdate)
    find_program(SWC_${tool} ${tool} HINTS /usr/lib/qt5/bin REQUIRED)
endforeach()

# So are Qt's own tools in a cross build.
if(CMAKE_CROSSCOMPILING)
    foreach(tool qmake moc rcc uic)
        find_program(SWC_${tool} ${tool} HINTS /usr/lib/qt5/bin REQUIRED)
        add_executable(Qt5::${tool} IMPORTED)
        set_target_properties(Qt5::${tool} PROPERTIES IMPORTED_LOCATION ${SWC_${tool}})
    endforeach()
endif()
