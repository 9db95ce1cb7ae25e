# Toolchain: builds for macOS 11.0 and later on Linux, with Zig's C++ driver. Takes from the
# environment: ZIG, the driver's path, and MACOS_ARCHITECTURE, "x86_64" or "arm64".
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_PROCESSOR $ENV{MACOS_ARCHITECTURE})
string(REPLACE arm64 aarch64 zig_architecture $ENV{MACOS_ARCHITECTURE})
set(CMAKE_CXX_COMPILER $ENV{ZIG} c++ -target ${zig_architecture}-macos.11.0)

# The target says it all: no SDK to look for, no linker paths to rewrite on installation.
set(CMAKE_OSX_SYSROOT "")
set(CMAKE_SKIP_RPATH ON)

# Zig's own headers are not annotated throughout.
set(CMAKE_CXX_FLAGS_INIT -Wno-nullability-completeness)
