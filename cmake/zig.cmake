# Toolchain: builds on Linux for macOS with Zig's C and C++ driver. Needs two cache variables: ZIG, the
# driver's path, and ZIG_TARGET, what to build for.
foreach(variable IN ITEMS ZIG ZIG_TARGET)
  if(NOT ${variable})
    message(FATAL_ERROR "cmake/zig.cmake needs -D${variable}=...; its first comment says what for")
  endif()
endforeach()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZIG ZIG_TARGET)
set(CMAKE_SYSTEM_NAME Darwin)
# The target is enough: there is no SDK to look for, and no linker path to rewrite on installation.
set(CMAKE_OSX_SYSROOT "")
set(CMAKE_SKIP_RPATH ON)
set(CMAKE_C_COMPILER "${ZIG}" cc -target "${ZIG_TARGET}")
set(CMAKE_CXX_COMPILER "${ZIG}" c++ -target "${ZIG_TARGET}")
# Zig's own headers are not annotated throughout.
set(CMAKE_C_FLAGS_INIT -Wno-nullability-completeness)
set(CMAKE_CXX_FLAGS_INIT -Wno-nullability-completeness)
set(CMAKE_EXE_LINKER_FLAGS_INIT -s) # no symbols and debug information, which name directories
# Zig is the archiver, too, as a subcommand, which CMAKE_AR cannot hold.
foreach(word IN ITEMS ar ranlib)
  string(TOUPPER "${word}" variable)
  set(CMAKE_${variable} "${CMAKE_BINARY_DIR}/zig-${word}")
  file(WRITE "${CMAKE_${variable}}" "#!/bin/sh\nexec '${ZIG}' ${word} \"$@\"\n")
  file(CHMOD "${CMAKE_${variable}}" PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endforeach()
