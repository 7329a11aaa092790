# kv::ui: windows, views, editor and dialogs on Qt 6 Widgets.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)
file(GLOB_RECURSE kv_ui_sources CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/platform/win/*.cpp
  ${PROJECT_SOURCE_DIR}/contracts/config/*.cpp
  ${PROJECT_SOURCE_DIR}/contracts/apptools/*.cpp
  ${PROJECT_SOURCE_DIR}/C/ui*.cpp)
if(kv_ui_sources)
  kv_library(ui ${kv_ui_sources})
  target_link_libraries(kv_ui PUBLIC kv_core PRIVATE Qt6::Widgets)
endif()
