# Where the program finds what ships with it.
file(RELATIVE_PATH HILALOR_INSTALLED_RESOURCES
  ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_DATADIR}/hilalor)
set_source_files_properties(process/Resources.cpp PROPERTIES COMPILE_DEFINITIONS
  HILALOR_INSTALLED_RESOURCES="${HILALOR_INSTALLED_RESOURCES}")
# In the build tree they lie where the program looks for installed ones.
cmake_path(SET built NORMALIZE ${PROJECT_BINARY_DIR}/program/${HILALOR_INSTALLED_RESOURCES})
cmake_path(GET built PARENT_PATH folder)
file(MAKE_DIRECTORY ${folder})
file(CREATE_LINK ${PROJECT_SOURCE_DIR}/resources ${built} SYMBOLIC)
