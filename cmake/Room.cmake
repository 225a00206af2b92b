# A static library made of all C++ files of this folder, but for a main.cpp.
function(vantora_add_room target)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  qt_add_library(${target} STATIC ${sources})
  vantora_join_sources(${target})
  vantora_look_into(${target} ${sources})
endfunction()

# Has moc look into files that are new. CMake 3.25 runs it again only for those that it knew, and a
# type in a new file would stay unknown until another one changes.
function(vantora_look_into target)
  set(list ${CMAKE_CURRENT_BINARY_DIR}/${target}-sources.txt)
  set(known "")
  if(EXISTS ${list})
    file(READ ${list} known)
  endif()
  if(NOT known STREQUAL "${ARGN}")
    file(REMOVE ${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/timestamp)
    file(WRITE ${list} "${ARGN}")
  endif()
endfunction()
