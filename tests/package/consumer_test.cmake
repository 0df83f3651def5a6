# Runs with cmake -P: install, configure a consumer, build it, run it.
file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")

function(run_step what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "${what} failed (${rc}):\n${out}\n${err}")
    endif()
    set(step_output "${out}" PARENT_SCOPE)
endfunction()

run_step("install" ${CMAKE_COMMAND} --install "${BEDROCK_BUILD_DIR}" --prefix "${prefix}")
run_step("configure consumer" ${CMAKE_COMMAND} -S "${CONSUMER_SOURCE_DIR}" -B "${WORK_DIR}/build"
    "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}"
    "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${LINKER_FLAGS}")
run_step("build consumer" ${CMAKE_COMMAND} --build "${WORK_DIR}/build")
run_step("run consumer" "${WORK_DIR}/build/consumer")
if(NOT step_output MATCHES "consumer ok")
    message(FATAL_ERROR "consumer printed: ${step_output}")
endif()

# The same program through the pkg-config file.
file(GLOB pcdirs "${prefix}/lib*/pkgconfig" "${prefix}/lib/*/pkgconfig")
list(GET pcdirs 0 pcdir)
set(ENV{PKG_CONFIG_PATH} "${pcdir}")
run_step("pkg-config" pkg-config --cflags --libs libbedrock)
string(STRIP "${step_output}" flags)
separate_arguments(flags UNIX_COMMAND "${CXX_FLAGS} ${LINKER_FLAGS} ${flags}")
run_step("build with pkg-config" ${CXX_COMPILER} -std=c++17 -fPIC
    "${CONSUMER_SOURCE_DIR}/main.cpp" ${flags} -o "${WORK_DIR}/consumer-pc")
file(GLOB libdir "${prefix}/lib*/libLibBedrock.so.1" "${prefix}/lib/*/libLibBedrock.so.1")
list(GET libdir 0 libfile)
get_filename_component(libdir "${libfile}" DIRECTORY)
set(ENV{LD_LIBRARY_PATH} "${libdir}")
run_step("run pkg-config consumer" "${WORK_DIR}/consumer-pc")
if(NOT step_output MATCHES "consumer ok")
    message(FATAL_ERROR "pkg-config consumer printed: ${step_output}")
endif()
