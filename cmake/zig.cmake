# Toolchain: builds on Linux for another system with Zig's C++ driver; for Linux itself, programs that
# are static. Needs two cache variables: ZIG, the driver's path, and ZIG_TARGET, what to build for.
foreach(variable IN ITEMS ZIG ZIG_TARGET)
  if(NOT ${variable})
    message(FATAL_ERROR "cmake/zig.cmake needs -D${variable}=...; its first comment says what for")
  endif()
endforeach()
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZIG ZIG_TARGET)
if(ZIG_TARGET MATCHES "-macos")
  set(CMAKE_SYSTEM_NAME Darwin)
  # The target says it all: no SDK to look for, no linker paths to rewrite on installation.
  set(CMAKE_OSX_SYSROOT "")
  set(CMAKE_SKIP_RPATH ON)
  # Zig's own headers are not annotated throughout.
  set(CMAKE_CXX_FLAGS_INIT -Wno-nullability-completeness)
else()
  set(CMAKE_SYSTEM_NAME Linux)
endif()
set(CMAKE_CXX_COMPILER "${ZIG}" c++ -target "${ZIG_TARGET}")
if(ZIG_TARGET MATCHES "^arm-")
  # ARMv7 with no more than every such processor under a hard-float Linux has: no NEON.
  list(APPEND CMAKE_CXX_COMPILER -mcpu=generic+v7a+vfp3d16-vfp3-d32-neon)
endif()
set(CMAKE_EXE_LINKER_FLAGS_INIT -s) # no symbols and debug information, which name directories
