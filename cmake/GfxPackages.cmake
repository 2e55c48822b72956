# Debian packages, by `cpack` or scripts/package: one for each component.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME gfx)
set(CPACK_PACKAGE_VENDOR "libGfx")
set(CPACK_PACKAGE_CONTACT "The libGfx team <libgfx@example.org>")
# Each package has its own; a common one would come before it.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_COMPONENTS_ALL runtime dev tools data)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The libraries between the packages are found in the packages themselves.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src")
# A later version of the same library has more, and nothing less.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/GfxFinishPackages.cmake")

file(STRINGS "${PROJECT_SOURCE_DIR}/cmake/debian/changelog" latest LIMIT_COUNT 1)
if(NOT latest MATCHES "^gfx \\(${PROJECT_VERSION}\\) ")
    message(FATAL_ERROR "cmake/debian/changelog doesn't begin with version ${PROJECT_VERSION}")
endif()
gfx_compress("${PROJECT_SOURCE_DIR}/cmake/debian/changelog" "${PROJECT_BINARY_DIR}/changelog")

# gfx_package(COMPONENT NAME SECTION SYNOPSIS PARAGRAPH): what every package has. Its papers stay out of an installation
# as a whole.
function(gfx_package a_component a_name a_section a_synopsis a_paragraph)
    string(TOUPPER "${a_component}" component)
    set(CPACK_DEBIAN_${component}_PACKAGE_NAME "${a_name}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${component}_PACKAGE_SECTION "${a_section}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${component}_DESCRIPTION "user-interface toolkit for touch-screen consoles - ${a_synopsis}
libGfx makes running touch interfaces of XML files: labels, buttons, lists,
graphs, on-screen keyboards and 3D scenes, with themes and languages, drawn
with Clutter on a screen of 800 by 480 pixels.

${a_paragraph}" PARENT_SCOPE)
    install(FILES "${PROJECT_SOURCE_DIR}/cmake/debian/copyright" "${PROJECT_BINARY_DIR}/changelog.gz"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${a_name}" COMPONENT ${a_component} EXCLUDE_FROM_ALL)
endfunction()

set(library "libgfx${PROJECT_VERSION_MAJOR}")
set(sameLibrary "${library} (= ${PROJECT_VERSION})")

gfx_package(runtime ${library} libs "library" "This package has the library.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SUGGESTS gfx-data)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/cmake/debian/triggers")

gfx_package(dev libgfx-dev libdevel "development files"
    "This package has what programs are built with: the headers, and the files by
which CMake and pkg-config find the library.")
# The package for CMake asks pkg-config for Clutter.
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "${sameLibrary}, libclutter-1.0-dev, pkg-config")

gfx_package(tools gfx-tools devel "tools and demo"
    "This package has the command gfx, which runs interfaces, takes pictures of them
and looks for mistakes in them, schemas for editors, and a demo.")
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${sameLibrary}, gfx-data (= ${PROJECT_VERSION})")
# What takes the pictures.
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS "xvfb, libgl1-mesa-dri")

gfx_package(data gfx-data misc "data"
    "This package has a data directory to begin with: three themes with their
textures, keyboards in eight alphabets and layouts, and models; and the demo's.")
set(CPACK_DEBIAN_DATA_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DATA_PACKAGE_SHLIBDEPS OFF)
# The font of the themes.
set(CPACK_DEBIAN_DATA_PACKAGE_RECOMMENDS fonts-dejavu-core)

include(CPack)
