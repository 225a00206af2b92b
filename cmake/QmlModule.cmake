# qmllint over every QML file of the program; a warning fails it.
add_custom_target(lint-qml)

# A static library that is a QML module, made of all C++ and QML files below this folder. The folders
# are for readers: to QML the module is flat.
function(vantora_add_qml_module target uri)
  file(GLOB_RECURSE sources RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *.cpp *.h)
  file(GLOB_RECURSE qml_files RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *.qml)
  string(REPLACE "." "/" path ${uri})

  foreach(file IN LISTS qml_files)
    get_filename_component(name ${file} NAME)
    set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${name})
  endforeach()
  # The C++ that Qt generates of each QML file is compiled many files at a time: most of it is headers.
  set_source_files_properties(${sources} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)

  qt_add_library(${target} STATIC)
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 25)
  qt_add_qml_module(${target}
    URI ${uri}
    VERSION 1.0
    DEPENDENCIES QtQuick
    RESOURCE_PREFIX /qt/qml
    OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml/${path}
    IMPORT_PATH ${CMAKE_BINARY_DIR}/qml
    SOURCES ${sources}
    QML_FILES ${qml_files})

  # What Qt generates beside the module takes the headers that it parsed, too.
  foreach(generated plugin plugin_init _qmlcache)
    if(TARGET ${target}${generated})
      target_precompile_headers(${target}${generated} REUSE_FROM vantora_controls)
    endif()
  endforeach()
  # The generated type registration includes headers by their bare names.
  foreach(file IN LISTS sources)
    get_filename_component(folder ${file} DIRECTORY)
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
  endforeach()
  add_dependencies(lint-qml ${target}_qmllint)
endfunction()
