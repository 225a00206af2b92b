# Every outside library, each with the Debian packages that provide it.

# qt6-base-dev, qt6-declarative-dev, libgl-dev
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Network Concurrent Test Qml Quick)
# qcoro-qt6-dev
find_package(QCoro6 0.8 REQUIRED COMPONENTS Core)
# libcurl4-openssl-dev
find_package(CURL 7.87 REQUIRED)
# libicu-dev
find_package(ICU REQUIRED COMPONENTS i18n uc)
# libvalijson-dev: headers alone; the name of its CMake target differs between versions.
find_path(VANTORA_VALIJSON_INCLUDE valijson/validator.hpp REQUIRED)
# libmicrohttpd-dev
find_path(VANTORA_MICROHTTPD_INCLUDE microhttpd.h REQUIRED)
find_library(VANTORA_MICROHTTPD_LIBRARY microhttpd REQUIRED)
