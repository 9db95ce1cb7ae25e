# The packages: a tar.gz of the installed tree everywhere, and a Debian package on Linux.
set(CPACK_PACKAGE_VENDOR "The hostsweep authors")
set(CPACK_PACKAGE_CONTACT
  "The hostsweep authors <maintainers@users.noreply.c-seed-a5e86583.example>")
set(CPACK_GENERATOR TGZ)
set(package_system macos)

if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  set(package_system linux)
  set(CPACK_STRIP_FILES ON) # not on macOS, where it would break the signature
  find_program(dpkg NAMES dpkg)
  if(dpkg)
    list(APPEND CPACK_GENERATOR DEB)
  endif()
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
  set(CPACK_DEBIAN_PACKAGE_SECTION net)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
  # The packages of ping, of host and of timeout with --foreground.
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "iputils-ping, bind9-host, coreutils (>= 8.13)")
  set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"For each address of a range, hostsweep prints a line with the name that
reverse DNS gives and the hardware address that the ARP cache holds, for
other programs to read. It does no network work of its own: it runs ping,
host and a small tool that reads the ARP cache, and needs no privileges.")
endif()
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/staged.cmake")
set(CPACK_PACKAGE_FILE_NAME
  "hostsweep-${PROJECT_VERSION}-${package_system}-${CMAKE_SYSTEM_PROCESSOR}")

include(CPack)
