# Installs the component into a folder of its own, builds the example host against what was
# installed, and has it look something up in the sample catalog.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGN}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCE}/examples/host -B ${WORK}/host
  -DCMAKE_PREFIX_PATH=${WORK}/prefix -DCMAKE_CXX_COMPILER=${COMPILER}
  -DCMAKE_CXX_FLAGS=${CXX_FLAGS})
run(${CMAKE_COMMAND} --build ${WORK}/host)
run(${WORK}/host/example_host ${BUILD}/samples/catalog bt15)
string(REGEX MATCHALL "[^\n]+" numbers "${output}")
list(LENGTH numbers count)
list(GET numbers 0 first)
if(NOT count EQUAL 9 OR NOT first STREQUAL "BT150-16")
  message(FATAL_ERROR "unexpected numbers: ${output}")
endif()
