# The compile for Windows, with Debian's MinGW: all but what needs Qt and, with wine, tests.
include(${CMAKE_CURRENT_LIST_DIR}/mingw_compiler.cmake)

# Headers of the host's packages serve where there is nothing but headers (Boost.Math, CLI11). They are reached through a
# folder that holds nothing else: /usr/include itself would bring in the headers of the host's own C library.
set(host_headers ${CMAKE_BINARY_DIR}/host-headers)
if(NOT DEFINED Boost_INCLUDE_DIR AND EXISTS /usr/include/boost)
  file(MAKE_DIRECTORY ${host_headers})
  file(CREATE_LINK /usr/include/boost ${host_headers}/boost SYMBOLIC)
  set(Boost_INCLUDE_DIR ${host_headers} CACHE PATH "Folder of the Boost headers")
  set(Boost_NO_BOOST_CMAKE ON CACHE BOOL "The host's package of Boost is not for this target")
endif()

# The same for nlohmann_json, headers only too.
if(NOT DEFINED NLOHMANN_JSON_FOLDER AND EXISTS /usr/include/nlohmann)
  set(json_folder ${CMAKE_BINARY_DIR}/json-include)
  file(MAKE_DIRECTORY ${json_folder})
  file(CREATE_LINK /usr/include/nlohmann ${json_folder}/nlohmann SYMBOLIC)
  set(NLOHMANN_JSON_FOLDER ${json_folder} CACHE PATH "Folder of the headers of nlohmann_json")
endif()

if(NOT DEFINED CLI11_DIR AND EXISTS /usr/include/CLI)
  file(MAKE_DIRECTORY ${host_headers})
  file(CREATE_LINK /usr/include/CLI ${host_headers}/CLI SYMBOLIC)
  file(WRITE ${host_headers}/CLI11Config.cmake "
add_library(CLI11::CLI11 INTERFACE IMPORTED)
set_target_properties(CLI11::CLI11 PROPERTIES INTERFACE_INCLUDE_DIRECTORIES ${host_headers})
")
  set(CLI11_DIR ${host_headers} CACHE PATH "Folder of the package file of CLI11")
endif()

# Programs of this build are run by wine, in a folder of its own of the user's cache.
find_program(ZIRVO_WINE NAMES wine)
if(ZIRVO_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/in-wine)
endif()

# Looked for at every configure until it is there: it may have been built meanwhile.
if(NOT ZIRVO_WINDOWS_QT)
  execute_process(COMMAND ${CMAKE_CURRENT_LIST_DIR}/../scripts/windows-qt --find
    OUTPUT_VARIABLE qt OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_VARIABLE complaint RESULT_VARIABLE failed)
  if(failed)
    message(STATUS "Without Qt: ${complaint}")
  else()
    set(ZIRVO_WINDOWS_QT "${qt}" CACHE PATH "Qt for Windows; without it the programs that need Qt are left out" FORCE)
  endif()
endif()
if(ZIRVO_WINDOWS_QT)
  # The linker puts what programs import in the order of the libraries' paths: within the build's own folder, which
  # CMake names from there, they are the same wherever the user's cache lies.
  file(CREATE_LINK ${ZIRVO_WINDOWS_QT} ${CMAKE_BINARY_DIR}/qt SYMBOLIC)
  list(APPEND CMAKE_FIND_ROOT_PATH ${CMAKE_BINARY_DIR}/qt)
  list(APPEND CMAKE_PREFIX_PATH ${CMAKE_BINARY_DIR}/qt)
  set(QT_HOST_PATH /usr CACHE PATH "Qt's tools for this machine")
  set(QT_HOST_PATH_CMAKE_DIR /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake CACHE PATH "Their package files")
else()
  set(ZIRVO_QT OFF)  # the option of that name keeps this
endif()
