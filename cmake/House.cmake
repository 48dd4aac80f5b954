# What every target of the house is built with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(house INTERFACE)
target_include_directories(house INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(house INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wold-style-cast -Wcast-qual -Wformat=2 -Wundef -Werror
  # A fused multiply-add rounds once where the formulas round twice; times must not hang on the CPU.
  -ffp-contract=off)
if(HILALOR_SANITIZE)
  target_compile_options(house INTERFACE -fsanitize=${HILALOR_SANITIZE} -fno-sanitize-recover=all
                                         -fno-omit-frame-pointer)
  target_link_options(house INTERFACE -fsanitize=${HILALOR_SANITIZE})
endif()

# hilalor_library(NAME SOURCES...): a static library of one folder.
function(hilalor_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC house)
endfunction()
