# What every target of the house is built with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

add_library(house INTERFACE)
target_include_directories(house INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(house INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wold-style-cast -Wcast-qual -Wformat=2 -Wundef
  # A fused multiply-add rounds once where the formulas round twice; times must not hang on the CPU.
  -ffp-contract=off)
if(HILALOR_SANITIZE)
  target_compile_options(house INTERFACE -fsanitize=${HILALOR_SANITIZE} -fno-sanitize-recover=all
                                         -fno-omit-frame-pointer)
  target_link_options(house INTERFACE -fsanitize=${HILALOR_SANITIZE})
endif()

# Hardened as distributions harden what they ship.
if(CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$" AND NOT HILALOR_SANITIZE)
  include(CheckCXXCompilerFlag)
  foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection)
    string(MAKE_C_IDENTIFIER "HAS${flag}" has)
    check_cxx_compiler_flag(${flag} ${has})
    if(${has})
      target_compile_options(house INTERFACE ${flag})
    endif()
  endforeach()
  target_compile_options(house INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  target_link_options(house INTERFACE -Wl,-z,relro,-z,now)
endif()
# Nothing of the machine that builds stays in what is built.
target_compile_options(house INTERFACE
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}/= -ffile-prefix-map=${PROJECT_BINARY_DIR}/=build/)
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# A compiler spends most of a file on the headers of libraries: a folder's go through it once. Without,
# every file is seen to include what it needs; the debug preset does so.
option(HILALOR_PRECOMPILE "Compile the libraries' headers once a folder" ON)

# hilalor_precompile(NAME HEADERS...): those of the target, besides what nearly every file takes.
function(hilalor_precompile name)
  if(HILALOR_PRECOMPILE)
    target_precompile_headers(${name} PRIVATE
      <algorithm> <chrono> <functional> <memory> <optional> <string> <vector> ${ARGN})
  endif()
endfunction()

# hilalor_library(NAME SOURCES...): a static library of one folder.
function(hilalor_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC house)
endfunction()
