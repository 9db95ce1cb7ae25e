# Run by CPack on the staged tree before it is packed: lets everybody into its folders, whatever the
# umask was, and gives a Debian package the files that Debian's policy asks for, compressed or
# stripped where it asks for that.
file(CHMOD_RECURSE "${CPACK_TEMPORARY_INSTALL_DIRECTORY}" DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

if(NOT CPACK_GENERATOR STREQUAL "DEB")
  return()
endif()

set(share "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share")
file(COPY "${CMAKE_CURRENT_LIST_DIR}/copyright" "${CMAKE_CURRENT_LIST_DIR}/changelog"
  DESTINATION "${share}/doc/hostsweep"
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
execute_process(
  COMMAND gzip --best --no-name "${share}/doc/hostsweep/changelog" "${share}/man/man1/hostsweep.1"
    "${share}/man/man1/hostsweep-network.1"
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND strip --remove-section=.comment --remove-section=.note
    "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/bin/hostsweep"
  COMMAND_ERROR_IS_FATAL ANY)
