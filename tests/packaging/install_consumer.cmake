# Installs a build to a fresh prefix, and configures, builds and runs the consumer against that copy.
#
# Variables: BUILD_DIR, CONSUMER_DIR, WORK_DIR, LIBRARY_DIR (in the prefix), GENERATOR, BUILD_TYPE, CXX_COMPILER,
# CXX_LAUNCHER, CXX_FLAGS

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "${output}\nfailed: ${ARGV}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

set(prefix ${WORK_DIR}/prefix)
set(build ${WORK_DIR}/build)
file(REMOVE_RECURSE ${WORK_DIR})

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

# Whoever loads the library by its path has given nobody a path to the host.
run(ldd ${prefix}/${LIBRARY_DIR}/libdatamodels.so)
if(output MATCHES "not found" OR NOT output MATCHES "${prefix}/[^\n]*libdatamodels_host")
  string(REGEX MATCHALL "[^\n]*(not found|datamodels)[^\n]*" output "${output}")
  message(FATAL_ERROR "the installed library does not find the installed host:\n${output}")
endif()

run(${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${build} -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
    -DCMAKE_CXX_COMPILER_LAUNCHER=${CXX_LAUNCHER} -DCMAKE_CXX_FLAGS=${CXX_FLAGS}
    -DCMAKE_FIND_PACKAGE_NO_PACKAGE_REGISTRY=ON)
run(${CMAKE_COMMAND} --build ${build})

run(ldd ${build}/consumer)
if(output MATCHES "${BUILD_DIR}/lib")
  message(FATAL_ERROR "the consumer uses the build instead of the installed copy:\n${output}")
endif()
run(${build}/consumer)
