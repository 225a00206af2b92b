# Every outside library, each with the Debian package that provides it.

# find_package() with a message that names what to install.
macro(vantora_require name debian_package)
  find_package(${name} ${ARGN} QUIET)
  if(NOT ${name}_FOUND)
    message(FATAL_ERROR
      "${name} (${ARGN}) was not found. On Debian: apt-get install ${debian_package}")
  endif()
endmacro()

# Sets `variable` to the first existing path among the arguments.
function(vantora_require_file variable debian_package)
  foreach(path IN LISTS ARGN)
    if(EXISTS ${path})
      set(${variable} ${path} PARENT_SCOPE)
      return()
    endif()
  endforeach()
  list(GET ARGN 0 wanted)
  message(FATAL_ERROR
    "${wanted} was not found. On Debian: apt-get install ${debian_package}.")
endfunction()

vantora_require(Qt6Core qt6-base-dev 6.4)
vantora_require(Qt6Gui "qt6-base-dev libgl-dev" 6.4)
vantora_require(Qt6Network qt6-base-dev 6.4)
vantora_require(Qt6Concurrent qt6-base-dev 6.4)
vantora_require(Qt6Test qt6-base-dev 6.4)
vantora_require(Qt6Qml qt6-declarative-dev 6.4)
vantora_require(Qt6Quick qt6-declarative-dev 6.4)
vantora_require(Qt6QuickControls2 qt6-declarative-dev 6.4)
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Network Concurrent Test Qml Quick QuickControls2)
vantora_require(QCoro6 qcoro-qt6-dev 0.8 COMPONENTS Core)
vantora_require(ICU libicu-dev COMPONENTS i18n uc)
# Headers alone; the name of its CMake target differs between versions.
find_path(VANTORA_VALIJSON_INCLUDE valijson/validator.hpp)
if(NOT VANTORA_VALIJSON_INCLUDE)
  message(FATAL_ERROR "valijson was not found. On Debian: apt-get install libvalijson-dev")
endif()

get_target_property(qt_core_location Qt6::Core LOCATION)
get_filename_component(qt_library_folder ${qt_core_location} DIRECTORY)
vantora_require_file(VANTORA_QT_CATALOGUE qt6-translations-l10n
  /usr/share/qt6/translations/qtbase_tr.qm
  ${QT6_INSTALL_PREFIX}/translations/qtbase_tr.qm
  ${QT6_INSTALL_PREFIX}/share/qt/translations/qtbase_tr.qm
  ${qt_library_folder}/../translations/qtbase_tr.qm)
