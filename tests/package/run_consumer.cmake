# Installs BUILD_DIR into WORK_DIR/prefix, configures and builds the consumer
# against it, and runs the consumer; any failing step fails the test. The
# consumer is built with this build's flags, so that a sanitizer build's
# library is loaded by a program that carries the sanitizer runtime.
file(REMOVE_RECURSE ${WORK_DIR})
function(step)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT rc EQUAL 0)
        message(FATAL_ERROR "failed: ${ARGN}\n${out}\n${err}")
    endif()
    message(STATUS "${out}")
endfunction()
step(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix)
step(${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/build -G ${GENERATOR}
     -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix -DCMAKE_BUILD_TYPE=Release
     "-DCMAKE_CXX_FLAGS=${CONSUMER_CXX_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${CONSUMER_LINK_FLAGS}")
step(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
set(ENV{LD_LIBRARY_PATH} "${WORK_DIR}/prefix/lib:${WORK_DIR}/prefix/lib64:$ENV{LD_LIBRARY_PATH}")
step(${WORK_DIR}/build/consumer)
