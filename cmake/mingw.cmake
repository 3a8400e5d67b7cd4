# Debian's MinGW with the POSIX thread model: the compile that keeps the Windows half of src/platform true.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# Boost.Math is headers only, so those of the host serve. They are reached through a folder that holds nothing else:
# /usr/include itself would bring in the headers of the host's own C library.
if(NOT DEFINED Boost_INCLUDE_DIR AND EXISTS /usr/include/boost)
  set(boost_folder ${CMAKE_BINARY_DIR}/boost-include)
  file(MAKE_DIRECTORY ${boost_folder})
  file(CREATE_LINK /usr/include/boost ${boost_folder}/boost SYMBOLIC)
  set(Boost_INCLUDE_DIR ${boost_folder} CACHE PATH "Folder of the Boost headers")
  set(Boost_NO_BOOST_CMAKE ON CACHE BOOL "The host's package of Boost is not for this target")
endif()

# The same for nlohmann_json, headers only too.
if(NOT DEFINED NLOHMANN_JSON_FOLDER AND EXISTS /usr/include/nlohmann)
  set(json_folder ${CMAKE_BINARY_DIR}/json-include)
  file(MAKE_DIRECTORY ${json_folder})
  file(CREATE_LINK /usr/include/nlohmann ${json_folder}/nlohmann SYMBOLIC)
  set(NLOHMANN_JSON_FOLDER ${json_folder} CACHE PATH "Folder of the headers of nlohmann_json")
endif()
