# The Debian packages that `cpack` makes: the program, and a small package for each file manager that
# can report its selection itself.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pinorama)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "The Pinorama developers <pinorama@pinorama.example>")
set(CPACK_PACKAGE_VENDOR "The Pinorama developers")
# Each package sets its own synopsis.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${PINORAMA_HOME_URL}")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

set(CPACK_DEBIAN_PINORAMA_PACKAGE_NAME pinorama)
set(CPACK_DEBIAN_PINORAMA_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PINORAMA_PACKAGE_RECOMMENDS
    "at-spi2-core, libqt6svg6, pinorama-places, qt6-translations-l10n, qt6-wayland, shared-mime-info")
set(CPACK_DEBIAN_PINORAMA_PACKAGE_SUGGESTS "marble, qt6-image-formats-plugins")
set(CPACK_COMPONENT_PINORAMA_DESCRIPTION
    "show where the picture selected in the file manager was taken
Pinorama keeps one small window open beside the file manager. Select a
picture there, and the window shows where it was taken: preview, size,
dates, coordinate, altitude, direction of view, and the place names that
the photographer wrote into it. It reads JPEG and the raw formats of
common cameras.

From the window you can fly a globe program to the place, save it as a
KML placemark, open it in web maps, and search a picture catalogue for
everything taken nearby. pinorama-info prints the same facts in a
terminal, for one picture or for many.")

# What places are looked up in is larger than the program, and changes less often.
install(FILES copyright-places RENAME copyright COMPONENT places EXCLUDE_FROM_ALL
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/pinorama-places")
install(FILES "${changelog}" "${program_changelog}" COMPONENT places EXCLUDE_FROM_ALL
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/pinorama-places")
install(FILES lintian-overrides-places RENAME pinorama-places COMPONENT places EXCLUDE_FROM_ALL
    DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides")
set(CPACK_DEBIAN_PLACES_PACKAGE_NAME pinorama-places)
set(CPACK_DEBIAN_PLACES_PACKAGE_SOURCE pinorama)
set(CPACK_DEBIAN_PLACES_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_PLACES_PACKAGE_ENHANCES pinorama)
set(CPACK_COMPONENT_PLACES_DESCRIPTION
    "places of the world for Pinorama
Pinorama shows where the picture selected in the file manager was taken.
With this package it does so in words, too, without asking anybody: \"8 km
SE of Grävenwiesbach, Germany\".

The package contains countries, 166,000 towns, seas, time zones, coasts and
borders, from GeoNames, country-coder and Natural Earth.")

# pinorama_file_manager_package(NAME TITLE FOLDER BINDING GAIN) makes the package NAME-pinorama with the
# extension for one file manager. BINDING is the package with its Python binding, FOLDER the place where
# that looks for extensions, and GAIN the end of the sentence that says what the package adds. All of them
# install the same file.
function(pinorama_file_manager_package name title folder binding gain)
    install(FILES extensions/pinorama_selection.py COMPONENT ${name}
        DESTINATION "${CMAKE_INSTALL_DATADIR}/${folder}/extensions")
    # Only packages need these.
    install(FILES copyright "${changelog}" COMPONENT ${name} EXCLUDE_FROM_ALL
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${name}-pinorama")
    set(overrides "${CMAKE_CURRENT_BINARY_DIR}/lintian-overrides-${name}")
    configure_file(lintian-overrides-extension.in "${overrides}" @ONLY)
    install(FILES "${overrides}" RENAME ${name}-pinorama COMPONENT ${name} EXCLUDE_FROM_ALL
        DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides")

    string(TOUPPER "${name}" upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME "${name}-pinorama" PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_SOURCE pinorama PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_ARCHITECTURE all PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "pinorama (>= ${PROJECT_VERSION}), ${binding}, python3-gi" PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_ENHANCES "${name}" PARENT_SCOPE)
    set(CPACK_COMPONENT_${upper}_DESCRIPTION
        "report the selection in ${title} to Pinorama
Pinorama shows where the picture selected in the file manager was taken.
It follows the selection of ${title} even without this package; with it
${gain}

Restart a running file manager to load the extension."
        PARENT_SCOPE)
endfunction()
set(tells_itself "the file manager reports each change itself, which is exact in every
view and takes less work.")
pinorama_file_manager_package(nautilus Nautilus nautilus-python "python3-nautilus" "${tells_itself}")
pinorama_file_manager_package(caja Caja caja-python "python3-caja" "${tells_itself}")
pinorama_file_manager_package(nemo Nemo nemo-python "nemo-python"
    "the file manager also reports the selection when its context menu opens.")
pinorama_file_manager_package(thunar Thunar thunarx-python "thunarx-python, gir1.2-thunarx-3.0"
    "the file manager also reports the folder of the selection.")

# The parts of other packages that the programs contain: header-only libraries.
find_path(PINORAMA_NLOHMANN_JSON nlohmann/json.hpp REQUIRED)
set(CPACK_PINORAMA_CONTAINED "${PINORAMA_NLOHMANN_JSON}/nlohmann/json.hpp")
set(CPACK_POST_BUILD_SCRIPTS "${CMAKE_CURRENT_SOURCE_DIR}/StaticBuiltUsing.cmake")

# Set here, because CPack would otherwise treat a single component as none.
get_cmake_property(CPACK_COMPONENTS_ALL COMPONENTS)
include(CPack)
