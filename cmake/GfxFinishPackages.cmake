# Run by cpack after it has built the packages: changes what it has no setting for.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
    set(folder "${package}.d")
    file(REMOVE_RECURSE "${folder}")
    execute_process(COMMAND dpkg-deb --raw-extract "${package}" "${folder}" COMMAND_ERROR_IS_FATAL ANY)

    # Folders that an installation makes on its way have got what the umask left.
    execute_process(COMMAND find "${folder}" -type d -exec chmod 755 "{}" + COMMAND_ERROR_IS_FATAL ANY)

    # The trigger calls ldconfig once for all packages that are being installed.
    file(REMOVE "${folder}/DEBIAN/postinst" "${folder}/DEBIAN/postrm")

    # Libraries of several architectures can lie side by side; programs and data serve all of them.
    if(package MATCHES "/lib[^/]*$")
        set(multiArch same)
    else()
        set(multiArch foreign)
    endif()
    file(READ "${folder}/DEBIAN/control" control)
    string(REGEX REPLACE "(\nArchitecture: [^\n]*)" "\\1\nMulti-Arch: ${multiArch}" control "${control}")
    file(WRITE "${folder}/DEBIAN/control" "${control}")

    execute_process(COMMAND dpkg-deb --root-owner-group --build "${folder}" "${package}" COMMAND_ERROR_IS_FATAL ANY
        OUTPUT_QUIET)
    file(REMOVE_RECURSE "${folder}")
endforeach()
