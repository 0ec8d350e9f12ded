# What makes a Debian package of the files that are installed, so that two builds of one tree are the same bytes; cpack reads it just
# before it packs them, and once more when it has. All times in the package are that of the last commit, or of the changelog where the
# tree is no repository.
set(changelog ${CPACK_VELLUTO_SOURCE}/packaging/changelog)
if(NOT DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(COMMAND git --git-dir=${CPACK_VELLUTO_SOURCE}/.git log -1 --format=%ct OUTPUT_VARIABLE time
                    OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    if(NOT time)
        execute_process(COMMAND dpkg-parsechangelog --file ${changelog} --show-field Timestamp OUTPUT_VARIABLE time
                        OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    endif()
    set(ENV{SOURCE_DATE_EPOCH} ${time})
endif()

if(CPACK_PACKAGE_FILES)
    # Folders are everybody's to read, whatever the umask of whoever packs; cpack's own package would tell it.
    set(unpacked ${CPACK_TEMPORARY_DIRECTORY}.unpacked)
    file(REMOVE_RECURSE ${unpacked})
    execute_process(COMMAND dpkg-deb --raw-extract ${CPACK_PACKAGE_FILES} ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND find ${unpacked} -type d -exec chmod 755 {} + COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND dpkg-deb --root-owner-group -Zxz --build ${unpacked} ${CPACK_PACKAGE_FILES} OUTPUT_QUIET
                    COMMAND_ERROR_IS_FATAL ANY)
    return()
endif()

set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share)
file(COPY ${changelog} DESTINATION ${share}/doc/velluto)
file(GLOB pages ${share}/man/man1/*.1)
foreach(file ${share}/doc/velluto/changelog ${pages})
    execute_process(COMMAND gzip --best --no-name ${file} COMMAND_ERROR_IS_FATAL ANY)
    file(CHMOD ${file}.gz PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endforeach()
