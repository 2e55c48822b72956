# What `cmake --install` puts where: the library, its headers, and the two ways to find them (a CMake package and a
# pkg-config file), in the components runtime, dev, tools and data.
if(NOT GFX_INSTALL)
    return()
endif()

# gfx_compress(FILE COPY): puts FILE, compressed, at COPY.gz.
find_program(GFX_GZIP gzip REQUIRED)
function(gfx_compress a_file a_copy)
    configure_file("${a_file}" "${a_copy}" COPYONLY)
    execute_process(COMMAND "${GFX_GZIP}" -9 --no-name --keep --force "${a_copy}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Headers of different major versions can lie side by side, as the libraries can.
set(apiName "gfx-${PROJECT_VERSION_MAJOR}")
set(includeDir "${CMAKE_INSTALL_INCLUDEDIR}/${apiName}")
set(packageDir "${CMAKE_INSTALL_LIBDIR}/cmake/Gfx")
set(pkgConfigDir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

install(TARGETS Gfx EXPORT GfxTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime NAMELINK_COMPONENT dev
    FILE_SET core DESTINATION "${includeDir}" COMPONENT dev
    FILE_SET toolkit DESTINATION "${includeDir}" COMPONENT dev)
install(EXPORT GfxTargets NAMESPACE Gfx:: DESTINATION "${packageDir}" COMPONENT dev)

include(CMakePackageConfigHelpers)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/GfxConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/GfxConfig.cmake" INSTALL_DESTINATION "${packageDir}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/GfxConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/GfxConfig.cmake" "${PROJECT_BINARY_DIR}/GfxConfigVersion.cmake"
    DESTINATION "${packageDir}" COMPONENT dev)

# The prefix is told relative to the file itself, so that an installed tree can be moved.
set(prefixFromPkgConfig "${pkgConfigDir}")
cmake_path(ABSOLUTE_PATH prefixFromPkgConfig BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}")
set(prefix "${CMAKE_INSTALL_PREFIX}")
cmake_path(RELATIVE_PATH prefix BASE_DIRECTORY "${prefixFromPkgConfig}" OUTPUT_VARIABLE prefixFromPkgConfig)
configure_file("${PROJECT_SOURCE_DIR}/cmake/gfx.pc.in" "${PROJECT_BINARY_DIR}/${apiName}.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/${apiName}.pc" DESTINATION "${pkgConfigDir}" COMPONENT dev)

set(libraryFromPrograms "${CMAKE_INSTALL_LIBDIR}")
cmake_path(RELATIVE_PATH libraryFromPrograms BASE_DIRECTORY "${CMAKE_INSTALL_BINDIR}")
if(GFX_BUILD_TOOLS)
    set_target_properties(gfx-demo gfx-tool PROPERTIES INSTALL_RPATH "$ORIGIN/${libraryFromPrograms}")
    install(TARGETS gfx-demo gfx-tool RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT tools)
    foreach(page gfx gfx-demo)
        gfx_compress("${PROJECT_SOURCE_DIR}/docs/${page}.1" "${PROJECT_BINARY_DIR}/${page}.1")
        install(FILES "${PROJECT_BINARY_DIR}/${page}.1.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT tools)
    endforeach()
    install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs/schemas" DESTINATION "${CMAKE_INSTALL_DATADIR}/${apiName}"
        COMPONENT tools)
endif()

# The data directory to begin with, and that of the demo; the links of the source tree become what they lead to.
set(dataSets "${PROJECT_SOURCE_DIR}/data/Configuration" "${PROJECT_SOURCE_DIR}/data/Models"
    "${PROJECT_SOURCE_DIR}/data/TextureMaps")
install(DIRECTORY ${dataSets} DESTINATION "${CMAKE_INSTALL_DATADIR}/${apiName}/data" COMPONENT data)
install(DIRECTORY ${dataSets} "${PROJECT_SOURCE_DIR}/demo/greenhouse/Layouts"
    "${PROJECT_SOURCE_DIR}/demo/greenhouse/Localisation"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/${apiName}/greenhouse" COMPONENT data)

include(GfxPackages)
