# Installs everything into a folder of its own, and builds and runs a program against nothing but what is there: found
# by CMake, and by pkg-config, after the installed tree has been moved. The programs there run with the data there.
# Needs a display.
#   BUILD_DIR  the build tree that is installed, or
#   PREFIX     where it is installed already
#   WORK_DIR   a folder that is emptied first
#   SOURCE_DIR where the consumer lies
#   CXX        the compiler

function(run)
    execute_process(COMMAND ${ARGN} WORKING_DIRECTORY "${WORK_DIR}" COMMAND_ERROR_IS_FATAL ANY OUTPUT_VARIABLE output)
    set(output "${output}" PARENT_SCOPE)
endfunction()

function(expect_aqua a_output)
    if(NOT a_output STREQUAL "Aqua\n")
        message(FATAL_ERROR "the consumer said: ${a_output}")
    endif()
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}")
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
run(ldd "${WORK_DIR}/cmake/consumer")
file(REAL_PATH "${prefix}" realPrefix)
if(NOT output MATCHES "libGfx[^ ]* => (${prefix}|${realPrefix})/")
    message(FATAL_ERROR "the consumer's libraries are: ${output}")
endif()

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

# Nothing that others read names the folders it was made in.
file(GLOB_RECURSE texts "${prefix}/*.cmake" "${prefix}/*.pc" "${prefix}/*.h" "${prefix}/*.xml")
cmake_path(GET SOURCE_DIR PARENT_PATH root)
cmake_path(GET root PARENT_PATH root)
foreach(text IN LISTS texts)
    file(READ "${text}" content)
    string(FIND "${content}" "${root}" found)
    if(NOT found EQUAL -1)
        message(FATAL_ERROR "${text} names ${root}")
    endif()
endforeach()

run("${CXX}" -std=c++20 "${SOURCE_DIR}/Consumer.cpp" ${flags} "-Wl,-rpath,${libDir}" -o "${WORK_DIR}/consumer")
run("${WORK_DIR}/consumer")
expect_aqua("${output}")

set(data "${prefix}/share/gfx-1")
run("${prefix}/bin/gfx" check "${data}/greenhouse")
run("${prefix}/bin/gfx" tree --language en "${data}/greenhouse")
if(NOT output MATCHES "id=\"Navigation:Pages\"")
    message(FATAL_ERROR "the tree of the greenhouse is: ${output}")
endif()
run("${prefix}/bin/gfx" model "${data}/data/Models/Water/Pump.obj")
run("${prefix}/bin/gfx-demo" --screenshot "${WORK_DIR}/demo.png")
