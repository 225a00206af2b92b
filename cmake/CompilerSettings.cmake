option(VANTORA_WARNINGS_AS_ERRORS "Stop the build at the first warning" OFF)
option(VANTORA_SANITIZE "Build with the address and undefined behaviour sanitizers" OFF)

add_library(vantora_settings INTERFACE)
target_compile_definitions(vantora_settings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS
  QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(vantora_settings INTERFACE
  -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual
  $<$<BOOL:${VANTORA_WARNINGS_AS_ERRORS}>:-Werror>)

if(VANTORA_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_compile_options(${sanitizers})
  add_link_options(${sanitizers})
endif()
