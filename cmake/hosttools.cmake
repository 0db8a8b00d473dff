# Qt Linguist's tools run on this machine, even in a cross build. CMAKE_PROGRAM_PATH, which may hold
# those of an SDK, is searched first.
foreach(tool lrelease lupdate)
    find_program(SWC_${tool} ${tool} HINTS /usr/lib/qt5/bin REQUIRED)
endforeach()

# Qt's other tools run on this machine, too.
if(CMAKE_CROSSCOMPILING)
    foreach(tool qmake moc rcc uic)
        find_program(SWC_${tool} ${tool} HINTS /usr/lib/qt5/bin REQUIRED)
        add_executable(Qt5::${tool} IMPORTED)
        set_target_properties(Qt5::${tool} PROPERTIES IMPORTED_LOCATION ${SWC_${tool}})
    endforeach()
endif()
