# What keeps a clean build short: headers that nearly every file parses are parsed twice in all,
# compiled QML is compiled a few dozen files at a time, and where nobody waits for one changed file,
# written sources are compiled together, too.

option(VANTORA_PRECOMPILED_HEADERS "Parse the common headers only once" ON)
option(VANTORA_JOINED_SOURCES
  "Compile the sources of a library together: fastest from scratch, slow after a change" OFF)

set(VANTORA_CORE_HEADERS
  <algorithm> <cmath> <functional> <memory> <optional>
  <QtCore/QCoreApplication> <QtCore/QDateTime> <QtCore/QHash> <QtCore/QJsonArray>
  <QtCore/QJsonDocument> <QtCore/QJsonObject> <QtCore/QList> <QtCore/QLocale> <QtCore/QObject>
  <QtCore/QPointer> <QtCore/QRegularExpression> <QtCore/QString> <QtCore/QStringList>
  <QtCore/QTimer> <QtCore/QUrl> <QtCore/QVariant>)
set(VANTORA_QML_HEADERS ${VANTORA_CORE_HEADERS}
  <QtGui/QFont> <QtGui/QImage> <QtQml/qqmlprivate.h> <QtQml/QQmlContext> <QtQml/QQmlEngine>
  <QtQuick/QQuickItem> <QtQuick/QQuickWindow>)

# The headers are those of the lists above; every file still includes what it uses.
function(vantora_precompile target)
  if(VANTORA_PRECOMPILED_HEADERS)
    target_precompile_headers(${target} PRIVATE ${ARGN})
  endif()
endfunction()

# The headers of `other`, parsed there.
function(vantora_precompile_like target other)
  if(VANTORA_PRECOMPILED_HEADERS)
    target_precompile_headers(${target} REUSE_FROM ${other})
  endif()
endfunction()

# What Qt generates beside a QML module takes the headers of `other`, too.
function(vantora_precompile_qml_module target other)
  foreach(part plugin plugin_init _qmlcache)
    if(TARGET ${target}${part})
      vantora_precompile_like(${target}${part} ${other})
    endif()
  endforeach()
endfunction()

# Nothing that Qt generates beside a library or a QML module holds anything for moc, but for its
# plugin. To be called when all targets are there.
function(vantora_skip_moc_of_generated folder)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    if(target MATCHES "(_resources_[0-9]+|_qmlcache|plugin_init)$")
      set_target_properties(${target} PROPERTIES AUTOMOC OFF)
    endif()
  endforeach()
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(inner IN LISTS folders)
    vantora_skip_moc_of_generated(${inner})
  endforeach()
endfunction()

# To be called after qt_add_qml_module(), in the same folder; `ARGN` are the C++ sources.
function(vantora_join_qml_module target)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "_qml\\.cpp$")
  vantora_group_sources(compiled_qml 25 ${sources})
  if(VANTORA_JOINED_SOURCES)
    list(FILTER ARGN INCLUDE REGEX "\\.cpp$")
    vantora_group_sources(written 12 ${ARGN})
  endif()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()

# Units of at most `size` sources each, and all of about the same size.
function(vantora_group_sources name size)
  list(LENGTH ARGN count)
  math(EXPR groups "(${count} + ${size} - 1) / ${size}")
  set(number 0)
  foreach(source IN LISTS ARGN)
    math(EXPR group "${number} * ${groups} / ${count}")
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${name}_${group})
    math(EXPR number "${number} + 1")
  endforeach()
endfunction()

function(vantora_join_sources target)
  if(VANTORA_JOINED_SOURCES)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 10)
    # g++ takes the frame of a coroutine for a type that other units could see.
    target_compile_options(${target} PRIVATE
      $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
  endif()
endfunction()

# Two dozen test programs are linked in half the time by another linker, where there is one.
find_program(VANTORA_QUICK_LINKER NAMES ld.lld ld.gold)
if(VANTORA_QUICK_LINKER AND CMAKE_BUILD_TYPE STREQUAL "Debug"
   AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  string(REGEX REPLACE ".*ld\\." "" linker ${VANTORA_QUICK_LINKER})
  add_link_options(-fuse-ld=${linker})
endif()
