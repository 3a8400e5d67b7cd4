# Installs the library into a fresh folder, builds the example on it by find_package and by pkg-config, and runs both.
# Variables: BUILD, EXAMPLE, COMPILER.

function(must)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE code OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "${ARGV}: ${code}\n${out}")
  endif()
  set(out "${out}" PARENT_SCOPE)
endfunction()

set(work ${BUILD}/tests/outside)
file(REMOVE_RECURSE ${work})
must(${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/installed)
must(${CMAKE_COMMAND} -S ${EXAMPLE} -B ${work}/example -DCMAKE_PREFIX_PATH=${work}/installed
  -DCMAKE_CXX_COMPILER=${COMPILER})
must(${CMAKE_COMMAND} --build ${work}/example)

# 182 and -503 micro, the values of samples/README.md.
set(expected "EPSx 182.12 EPSz -502.73\n")
must(${work}/example/road)
if(NOT out STREQUAL expected)
  message(FATAL_ERROR "the example by find_package printed ${out}")
endif()

find_program(pkg_config NAMES pkg-config pkgconf)
if(pkg_config)
  file(GLOB_RECURSE pc ${work}/installed/zirvo.pc)
  must(${pkg_config} --cflags --libs ${pc})
  separate_arguments(flags UNIX_COMMAND "${out}")
  must(${COMPILER} ${EXAMPLE}/road.cpp -o ${work}/road ${flags})
  must(${work}/road)
  if(NOT out STREQUAL expected)
    message(FATAL_ERROR "the example by pkg-config printed ${out}")
  endif()
endif()
