# qmllint over every QML file of the program; a warning fails it.
add_custom_target(lint-qml)

# A static library that is a QML module, made of all C++ and QML files below this folder. The folders
# are for readers: to QML the module is flat.
function(vantora_add_qml_module target uri)
  file(GLOB_RECURSE module_SOURCES RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *.cpp *.h)
  file(GLOB_RECURSE module_QML_FILES RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS *.qml)
  string(REPLACE "." "/" path ${uri})

  foreach(file IN LISTS module_QML_FILES)
    get_filename_component(name ${file} NAME)
    set_source_files_properties(${file} PROPERTIES QT_RESOURCE_ALIAS ${name})
  endforeach()

  qt_add_library(${target} STATIC)
  qt_add_qml_module(${target}
    URI ${uri}
    VERSION 1.0
    DEPENDENCIES QtQuick
    RESOURCE_PREFIX /qt/qml
    OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml/${path}
    IMPORT_PATH ${CMAKE_BINARY_DIR}/qml
    SOURCES ${module_SOURCES}
    QML_FILES ${module_QML_FILES})

  vantora_join_qml_module(${target} ${module_SOURCES})
  vantora_look_into(${target} ${module_SOURCES})

  # The generated type registration includes headers by their bare names.
  foreach(file IN LISTS module_SOURCES)
    get_filename_component(folder ${file} DIRECTORY)
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
  endforeach()

  list(TRANSFORM module_QML_FILES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  add_custom_target(lint-${target}
    COMMAND Qt6::qmllint -I ${CMAKE_BINARY_DIR}/qml -I ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_QML}
      ${module_QML_FILES}
    DEPENDS ${target}
    VERBATIM)
  add_dependencies(lint-qml lint-${target})
endfunction()
