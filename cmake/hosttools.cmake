# Qt's tools of this machine in place of the sysroot's, which are for the unit's processor. Tools of
# another place, as an SDK brings them, are found first through CMAKE_PROGRAM_PATH.
foreach(tool qmake moc rcc uic lrelease lupdate lconvert)
    find_program(SWC_${tool} ${tool} HINTS /usr/lib/qt5/bin REQUIRED)
    add_executable(Qt5::${tool} IMPORTED)
    set_target_properties(Qt5::${tool} PROPERTIES IMPORTED_LOCATION ${SWC_${tool}})
endforeach()
