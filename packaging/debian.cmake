# SPDX-License-Identifier: Apache-2.0
# Run by CPack on the staged files: adds what Debian's policy and its cups package want.
set(stage "${CPACK_TEMPORARY_DIRECTORY}")
set(doc "${stage}/usr/share/doc/${CPACK_PACKAGE_NAME}")
set(updaters "${stage}/usr/share/cups/ppd-updaters")

# take(FILE FOLDER NAME): a file of the sources under a name of Debian's.
function(take file folder name)
  file(READ "${CMAKE_CURRENT_LIST_DIR}/${file}" text)
  file(WRITE "${folder}/${name}" "${text}")
  file(CHMOD "${folder}/${name}" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endfunction()

file(RENAME "${stage}/usr/share/doc/kvfilter" "${doc}")
take(copyright "${doc}" copyright)
take(../CHANGELOG.md "${doc}" changelog)
take(changelog "${doc}" changelog.Debian)

# With it, cups gives the queues of these models their new PPDs when the package is upgraded.
take(ppd-updater "${updaters}" printer-driver-kvfilter.ppd-updater)

file(GLOB compressed "${doc}/changelog*" "${stage}/usr/share/man/man*/*")
execute_process(COMMAND gzip -9n ${compressed} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND find "${stage}" -type d -exec chmod 755 {} + COMMAND_ERROR_IS_FATAL ANY)
