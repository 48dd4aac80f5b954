# Where the user is, and what ships with the program.
target_sources(desktop PRIVATE
  GeoClueLocationService.cpp
  GeoClueSession.cpp
  NetworkWatch.cpp
  OfflineAtlas.cpp
  OfflineGeocoder.cpp
  Resources.cpp)
target_link_libraries(desktop PUBLIC geodata Qt6::DBus)
set_target_properties(desktop PROPERTIES AUTOMOC ON)

file(RELATIVE_PATH HILALOR_INSTALLED_RESOURCES
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/hilalor)
set_source_files_properties(Resources.cpp PROPERTIES COMPILE_DEFINITIONS
  "HILALOR_INSTALLED_RESOURCES=\"${HILALOR_INSTALLED_RESOURCES}\";HILALOR_SOURCE_RESOURCES=\"${PROJECT_SOURCE_DIR}/resources\"")

foreach(data places zones map)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/resources/geodata/${data}
          DESTINATION ${CMAKE_INSTALL_DATADIR}/hilalor/geodata)
endforeach()

# GeoClue knows the program by the name of this file.
install(FILES ${PROJECT_SOURCE_DIR}/packaging/hilalor.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
