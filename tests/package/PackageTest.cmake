# Installs the library into a folder of its own, and builds and runs a program against nothing but what is there: found
# by CMake, and by pkg-config, after the installed tree has been moved.
#   BUILD_DIR  the build tree that is installed, or
#   PREFIX     where it is installed already
#   WORK_DIR   a folder that is emptied first
#   SOURCE_DIR where the consumer lies
#   CXX        the compiler

function(run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY OUTPUT_VARIABLE output)
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect_aqua a_output)
    if(NOT a_output STREQUAL "Aqua\n")
        message(FATAL_ERROR "the consumer said: ${a_output}")
    endif()
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
if(PREFIX)
    set(prefix "${PREFIX}")
else()
    set(prefix "${WORK_DIR}/prefix")
    run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${WORK_DIR}/elsewhere")
    file(RENAME "${WORK_DIR}/elsewhere" "${prefix}")
endif()

run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${WORK_DIR}/cmake" "-DCMAKE_PREFIX_PATH=${prefix}"
    "-DCMAKE_CXX_COMPILER=${CXX}")
run("${CMAKE_COMMAND}" --build "${WORK_DIR}/cmake")
run("${WORK_DIR}/cmake/consumer")
expect_aqua("${output}")

file(GLOB_RECURSE pkgConfigFile "${prefix}/gfx-1.pc")
cmake_path(GET pkgConfigFile PARENT_PATH pkgConfigDir)
cmake_path(GET pkgConfigDir PARENT_PATH libDir)
set(ENV{PKG_CONFIG_PATH} "${pkgConfigDir}")
execute_process(COMMAND pkg-config --cflags --libs gfx-1 OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(flags UNIX_COMMAND "${flags}")
# The one header that the program includes leads to every header that is installed.
run("${CXX}" -std=c++20 -M "${SOURCE_DIR}/Consumer.cpp" ${flags})
string(REGEX REPLACE "[ \\\n]+" ";" reached "${output}")
foreach(file IN LISTS reached)
    file(REAL_PATH "${file}" file)
    list(APPEND reachedFiles "${file}")
endforeach()
file(GLOB_RECURSE installedHeaders "${prefix}/*.h")
list(REMOVE_ITEM installedHeaders ${reachedFiles})
if(installedHeaders)
    message(FATAL_ERROR "Gfx/Gfx.h doesn't lead to: ${installedHeaders}")
endif()

run("${CXX}" -std=c++20 "${SOURCE_DIR}/Consumer.cpp" ${flags} "-Wl,-rpath,${libDir}" -o "${WORK_DIR}/consumer")
run("${WORK_DIR}/consumer")
expect_aqua("${output}")
