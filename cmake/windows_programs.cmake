# What a program on Windows has beside its code: version, manifest and icon in the file, Qt's libraries beside it.

# zirvo_windows_icon(TARGET LINE): the drawing as an icon file, and the line of the resources that names it; "" where the
# tool is missing that draws.
function(zirvo_windows_icon target line)
  find_program(ZIRVO_DRAWS_ICONS NAMES rsvg-convert)
  if(NOT ZIRVO_DRAWS_ICONS)
    message(STATUS "No rsvg-convert (librsvg2-bin): ${target} has no icon")
    set(${line} "" PARENT_SCOPE)
    return()
  endif()
  set(drawings ${CMAKE_SOURCE_DIR}/packaging/icons)
  set(icon ${CMAKE_BINARY_DIR}/icons/zirvo.ico)
  add_custom_command(OUTPUT ${icon}
    COMMAND ${drawings}/make_icons ${CMAKE_BINARY_DIR}/icons
    DEPENDS ${drawings}/make_icons ${drawings}/zirvo.svg)
  target_sources(${target} PRIVATE ${icon})
  set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${target}.rc PROPERTIES OBJECT_DEPENDS ${icon})
  set(${line} "1 ICON \"${icon}\"" PARENT_SCOPE)
endfunction()

# zirvo_windows_program(TARGET DESCRIPTION [QT] [ICON]): on other systems it does nothing.
function(zirvo_windows_program target description)
  cmake_parse_arguments(ARG "QT;ICON" "" "" ${ARGN})
  if(NOT WIN32)
    return()
  endif()
  get_target_property(name ${target} OUTPUT_NAME)
  if(NOT name)
    set(name ${target})
  endif()
  if(NOT name MATCHES "\\.[a-zA-Z]+$")
    string(APPEND name .exe)
  endif()
  set(PROGRAM_FILE ${name})
  set(PROGRAM_DESCRIPTION ${description})
  set(PROGRAM_MANIFEST ${CMAKE_SOURCE_DIR}/cmake/windows_program.manifest)
  set(PROGRAM_ICON_LINE)
  set(resources ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
  if(ARG_ICON)
    zirvo_windows_icon(${target} PROGRAM_ICON_LINE)
  endif()
  configure_file(${CMAKE_SOURCE_DIR}/cmake/windows_program.rc.in ${resources} @ONLY)
  target_sources(${target} PRIVATE ${resources})
  if(ARG_QT AND MINGW)
    set_target_properties(${target} PROPERTIES ZIRVO_USES_QT ON)
    zirvo_windows_libraries()
    add_dependencies(${target} zirvo_windows_libraries)
  endif()
endfunction()

# zirvo_windows_libraries(): the target that copies Qt's libraries, the plug-ins that are needed and the compiler's own
# libraries to the programs' folder.
function(zirvo_windows_libraries)
  if(TARGET zirvo_windows_libraries)
    return()
  endif()
  find_package(Qt6 6.4 REQUIRED COMPONENTS Gui PrintSupport Widgets)
  set(files)
  foreach(module Core Gui PrintSupport Widgets)
    list(APPEND files $<TARGET_FILE:Qt6::${module}>=.)
  endforeach()
  foreach(plugin QWindowsIntegrationPlugin QOffscreenIntegrationPlugin)
    list(APPEND files $<TARGET_FILE:Qt6::${plugin}>=plugins/platforms)
  endforeach()
  foreach(library libgcc_s_seh-1.dll libstdc++-6.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library} OUTPUT_VARIABLE path
      OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${path}")
      message(FATAL_ERROR "The compiler has no ${library}")
    endif()
    list(APPEND files ${path}=.)
  endforeach()
  set(commands)
  foreach(pair IN LISTS files)
    string(REGEX MATCH "^(.*)=(.*)$" ignored ${pair})
    set(folder ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${CMAKE_MATCH_2})
    list(APPEND commands
      COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
      COMMAND ${CMAKE_COMMAND} -E copy_if_different ${CMAKE_MATCH_1} ${folder})
  endforeach()
  set(done ${CMAKE_BINARY_DIR}/windows_libraries.done)
  file(WRITE ${CMAKE_BINARY_DIR}/qt.conf "[Paths]\nPrefix=.\nPlugins=plugins\nTranslations=translations\n")
  add_custom_command(OUTPUT ${done}
    ${commands}
    COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_BINARY_DIR}/qt.conf ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/translations
    COMMAND ${CMAKE_COMMAND} -E copy_if_different /usr/share/qt6/translations/qtbase_ja.qm
            ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/translations
    COMMAND ${CMAKE_COMMAND} -E touch ${done})
  add_custom_target(zirvo_windows_libraries DEPENDS ${done})
endfunction()
