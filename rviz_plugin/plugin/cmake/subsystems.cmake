# How a subsystem folder under src/ becomes a library, and how the folders find each other.
#
# A folder src/<name>/ holds one static library, rviz_plugin_<name>, declared by its own CMakeLists.txt
# with rviz_plugin_subsystem(). Headers are included as "<name>/header.h" from other folders and by bare
# name inside their own. A library may include only the folders it depends on (directly or not); the
# include-layers test reads the dependencies recorded here and checks every include against them.

set(RVIZ_PLUGIN_SOURCE_ROOT ${CMAKE_CURRENT_SOURCE_DIR}/src)
set(RVIZ_PLUGIN_WARNINGS -Wall -Wextra -Wpedantic -Wshadow=local -Wnon-virtual-dtor)

# Precompiled header sets, each built once and reused by every library that names it.
set(RVIZ_PLUGIN_PCH_qt <QObject> <QString> <QWidget> <QLabel> <QPushButton> <QLayout> <QMap>)
set(RVIZ_PLUGIN_PCH_qt_ros ${RVIZ_PLUGIN_PCH_qt} <ros/ros.h>)
set(RVIZ_PLUGIN_PCH_rviz ${RVIZ_PLUGIN_PCH_qt_ros} <rviz/display.h> <rviz/properties/property.h>
    <rviz/render_panel.h> <OgreSceneManager.h>)

# The library that owns the precompiled header of a set: made on first use, with the dependencies the
# set's headers need, so that every library reusing it compiles with the same flags.
function(_rviz_plugin_pch_target set out)
  set(target rviz_plugin_pch_${set})
  if(NOT TARGET ${target})
    set(stub ${CMAKE_BINARY_DIR}/rviz_plugin_pch/${set}.cpp)
    file(WRITE ${stub} "// Owner of the ${set} precompiled header.\n")
    add_library(${target} STATIC ${stub})
    target_link_libraries(${target} PUBLIC rviz_plugin_ros Qt5::Widgets)
    target_compile_options(${target} PRIVATE ${RVIZ_PLUGIN_WARNINGS})
    target_precompile_headers(${target} PRIVATE ${RVIZ_PLUGIN_PCH_${set}})
    if(catkin_EXPORTED_TARGETS)
      add_dependencies(${target} ${catkin_EXPORTED_TARGETS})
    endif()
  endif()
  set(${out} ${target} PARENT_SCOPE)
endfunction()

# rviz_plugin_subsystem(SOURCES files... [DEPENDS targets...] [PCH qt|qt_ros|rviz] [EXPORTS file])
#   EXPORTS: the file that registers the folder's plugin classes; it is compiled into librviz_plugin.so,
#   which then links the folder's library.
function(rviz_plugin_subsystem)
  cmake_parse_arguments(ARG "" "PCH;EXPORTS" "SOURCES;DEPENDS" ${ARGN})
  get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  set(name rviz_plugin_${folder})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC ${RVIZ_PLUGIN_SOURCE_ROOT})
  target_compile_options(${name} PRIVATE ${RVIZ_PLUGIN_WARNINGS})
  target_link_libraries(${name} PUBLIC ${ARG_DEPENDS})
  # Generated message headers must exist before anything includes them.
  if(catkin_EXPORTED_TARGETS)
    add_dependencies(${name} ${catkin_EXPORTED_TARGETS})
  endif()
  if(ARG_PCH)
    _rviz_plugin_pch_target(${ARG_PCH} owner)
    target_link_libraries(${name} PRIVATE rviz_plugin_ros Qt5::Widgets)
    target_precompile_headers(${name} REUSE_FROM ${owner})
  endif()
  if(ARG_EXPORTS)
    target_sources(rviz_plugin PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${ARG_EXPORTS})
    target_link_libraries(rviz_plugin PRIVATE ${name})
  endif()

  set(layers)
  foreach(dependency IN LISTS ARG_DEPENDS)
    string(REGEX REPLACE "^rviz_plugin_" "" dependency_folder ${dependency})
    if(NOT dependency_folder STREQUAL dependency AND IS_DIRECTORY ${RVIZ_PLUGIN_SOURCE_ROOT}/${dependency_folder})
      list(APPEND layers ${dependency_folder})
    endif()
  endforeach()
  list(JOIN layers " " layers)
  set_property(GLOBAL APPEND PROPERTY RVIZ_PLUGIN_LAYERS "${folder}:${layers}")
endfunction()

# Adds every folder under `root` that has a CMakeLists.txt; a new folder needs no line anywhere else.
function(rviz_plugin_add_folders root)
  file(GLOB lists CONFIGURE_DEPENDS ${root}/*/CMakeLists.txt)
  list(SORT lists)
  foreach(list_file IN LISTS lists)
    get_filename_component(folder ${list_file} DIRECTORY)
    add_subdirectory(${folder})
  endforeach()
endfunction()

# Writes "folder: dependency folders" a line per library, for the include-layers test.
function(rviz_plugin_write_layers file)
  get_property(layers GLOBAL PROPERTY RVIZ_PLUGIN_LAYERS)
  list(SORT layers)
  list(JOIN layers "\n" text)
  file(GENERATE OUTPUT ${file} CONTENT "${text}\n")
endfunction()
