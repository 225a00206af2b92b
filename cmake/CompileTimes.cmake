# What keeps a clean build short: headers that nearly every file parses are parsed three times in
# all, and compiled QML is compiled a dozen files at a time.

option(VANTORA_PRECOMPILED_HEADERS "Parse the common headers only once" ON)

set(VANTORA_CORE_HEADERS
  <algorithm> <cmath> <functional> <memory> <optional>
  <QtCore/QCoreApplication> <QtCore/QDateTime> <QtCore/QHash> <QtCore/QJsonArray>
  <QtCore/QJsonDocument> <QtCore/QJsonObject> <QtCore/QList> <QtCore/QLocale> <QtCore/QObject>
  <QtCore/QPointer> <QtCore/QRegularExpression> <QtCore/QString> <QtCore/QStringList>
  <QtCore/QTimer> <QtCore/QUrl> <QtCore/QVariant>)
set(VANTORA_NETWORK_HEADERS ${VANTORA_CORE_HEADERS}
  <QCoroTask> <QCoroFuture>)
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

# To be called after qt_add_qml_module(), in the same folder.
function(vantora_join_compiled_qml target)
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "_qml\\.cpp$")
  set(number 0)
  foreach(source IN LISTS sources)
    math(EXPR group "${number} / 12")
    set_source_files_properties(${source} PROPERTIES UNITY_GROUP compiled_qml_${group})
    math(EXPR number "${number} + 1")
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()
