# Run by cpack when it makes the packages: adds the field Static-Built-Using, which cpack does not support.
# It names the source packages of which the programs contain parts, so that Debian's archive tools know that
# the programs have to be rebuilt when one of those is fixed.
#
# CPACK_PINORAMA_CONTAINED  a file from each package of which the programs contain a part

foreach(file IN LISTS CPACK_PINORAMA_CONTAINED)
    file(REAL_PATH "${file}" file)
    execute_process(COMMAND dpkg-query --search "${file}"
        OUTPUT_VARIABLE owner ERROR_QUIET RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(STATUS "${file} comes from no Debian package, so the packages cannot name its source.")
        continue()
    endif()
    string(REGEX REPLACE ": .*" "" owner "${owner}")
    execute_process(COMMAND dpkg-query --show --showformat "\${source:Package} (= \${source:Version})" "${owner}"
        OUTPUT_VARIABLE source COMMAND_ERROR_IS_FATAL ANY)
    list(APPEND sources "${source}")
endforeach()
if(NOT sources)
    return()
endif()
list(SORT sources)
list(REMOVE_DUPLICATES sources)
list(JOIN sources ", " sources)

foreach(package IN LISTS CPACK_PACKAGE_FILES)
    if(NOT package MATCHES "/pinorama_[^/]*\\.deb$")
        continue()
    endif()
    set(folder "${package}.unpacked")
    execute_process(COMMAND dpkg-deb --raw-extract "${package}" "${folder}" COMMAND_ERROR_IS_FATAL ANY)
    file(READ "${folder}/DEBIAN/control" control)
    string(REGEX REPLACE "\n(Version: [^\n]*)\n" "\nStatic-Built-Using: ${sources}\n\\1\n" control "${control}")
    file(WRITE "${folder}/DEBIAN/control" "${control}")
    execute_process(COMMAND dpkg-deb --root-owner-group --build "${folder}" "${package}"
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE_RECURSE "${folder}")
endforeach()
