# Toolchain: builds static programs for Linux with Debian's compilers, hardened as Debian hardens its own
# packages. Needs one cache variable: TRIPLET, Debian's name for the system to build for, for example
# aarch64-linux-gnu.
if(NOT TRIPLET)
  message(FATAL_ERROR "cmake/static.cmake needs -DTRIPLET=...; its first comment says what for")
endif()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TRIPLET)
set(CMAKE_SYSTEM_NAME Linux)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR "${TRIPLET}")
set(CMAKE_C_COMPILER ${TRIPLET}-gcc)
set(CMAKE_CXX_COMPILER ${TRIPLET}-g++)

set(compile_options -D_FORTIFY_SOURCE=2 -Wdate-time -Wformat -Werror=format-security
  -fstack-protector-strong -fstack-clash-protection -ffunction-sections -fdata-sections)
set(link_options -s -Wl,-z,relro,-z,now,--gc-sections) # no symbols, which name directories
if(TRIPLET MATCHES "^x86_64-")
  list(APPEND compile_options -fcf-protection)
elseif(TRIPLET MATCHES "^aarch64-")
  # The second option for what CMakeLists.txt says of this compiler, here in libraries, too.
  list(APPEND compile_options -mbranch-protection=standard -fno-strict-aliasing)
endif()

# A static program that runs at any address has to begin with this file of glibc's, which does not exist
# for every processor. Without it, the program can only run at a fixed address.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=rcrt1.o
  OUTPUT_VARIABLE start OUTPUT_STRIP_TRAILING_WHITESPACE)
if(IS_ABSOLUTE "${start}")
  list(APPEND compile_options -fPIE)
  list(APPEND link_options -static-pie)
else()
  list(APPEND compile_options -fno-pie)
  list(APPEND link_options -static -no-pie)
endif()

list(JOIN compile_options " " CMAKE_CXX_FLAGS_INIT)
set(CMAKE_C_FLAGS_INIT "${CMAKE_CXX_FLAGS_INIT}")
list(JOIN link_options " " CMAKE_EXE_LINKER_FLAGS_INIT)
