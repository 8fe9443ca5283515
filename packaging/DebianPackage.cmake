# The Debian packages that `cpack` makes: the program, and a small package for each file manager that
# can tell of its selection by itself.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pinorama)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "The Pinorama developers <pinorama@pinorama.example>")
set(CPACK_PACKAGE_VENDOR "The Pinorama developers")
# Every package has a first line of its own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

# Named here, because a list of one component would otherwise count as no components at all.
get_cmake_property(CPACK_COMPONENTS_ALL COMPONENTS)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${PINORAMA_HOME_URL}")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_PINORAMA_PACKAGE_NAME pinorama)
set(CPACK_DEBIAN_PINORAMA_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PINORAMA_PACKAGE_RECOMMENDS
    "at-spi2-core, libarchive-tools, libqt6svg6, qt6-translations-l10n, qt6-wayland, shared-mime-info")
set(CPACK_DEBIAN_PINORAMA_PACKAGE_SUGGESTS "marble, qt6-image-formats-plugins")
set(CPACK_COMPONENT_PINORAMA_DESCRIPTION
    "tell where the picture selected in the file manager was taken
Pinorama keeps one small window open beside the file manager. Select a
picture there, and the window tells where it was taken: preview, size,
dates, coordinate, altitude, direction of view, and the place names that
the photographer wrote into it. It reads JPEG and the raw formats of the
common cameras.

From the window you can fly a globe program to the place, save it as a
KML placemark, open it in web maps, and ask a picture catalogue for what
was taken nearby. pinorama-info prints the same facts on a terminal, for
one picture or for many.")

# The packages of the file managers: pinorama-NAME needs the file manager's binding for Python.
function(pinorama_file_manager_package name title binding)
    string(TOUPPER "${name}" upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME "${name}-pinorama" PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_ARCHITECTURE all PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "pinorama (>= ${PROJECT_VERSION}), ${binding}" PARENT_SCOPE)
    set(CPACK_COMPONENT_${upper}_DESCRIPTION
        "tell Pinorama what is selected in ${title}
Pinorama shows where the picture selected in the file manager was taken.
It follows the selection of ${title} without this package too; with it
the file manager tells of each change itself, which is exact in every
view and takes less work."
        PARENT_SCOPE)
endfunction()
pinorama_file_manager_package(nautilus Nautilus "python3-nautilus")
pinorama_file_manager_package(nemo Nemo "nemo-python | python3-nemo")
pinorama_file_manager_package(caja Caja "python3-caja")
pinorama_file_manager_package(thunar Thunar "thunarx-python, gir1.2-thunarx-3.0")

include(CPack)
