# kv::core: contours, their files and masks. No window system, no Qt.
find_package(PkgConfig REQUIRED)
find_package(pugixml REQUIRED)
find_package(PNG REQUIRED)
find_package(TIFF REQUIRED)
find_package(JPEG REQUIRED)
file(GLOB_RECURSE kv_core_sources CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/platform/afx/*.cpp
  ${PROJECT_SOURCE_DIR}/contracts/basics/*.cpp
  ${PROJECT_SOURCE_DIR}/contracts/image/*.cpp
  ${PROJECT_SOURCE_DIR}/contracts/xml/*.cpp
  ${PROJECT_SOURCE_DIR}/contracts/undo/*.cpp
  ${PROJECT_SOURCE_DIR}/C/sy*.cpp)
kv_library(core ${kv_core_sources} ${KV_RESOURCE_OBJECT})
target_link_libraries(kv_core PUBLIC kv_gdi PRIVATE pugixml::pugixml PNG::PNG TIFF::TIFF JPEG::JPEG)
