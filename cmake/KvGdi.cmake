# kv::gdi: the software GDI. Needs FreeType and fontconfig for glyphs, nothing else.
find_package(Freetype REQUIRED)
find_package(Fontconfig REQUIRED)
file(GLOB_RECURSE kv_gdi_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/platform/gdi/*.cpp)
kv_library(gdi ${kv_gdi_sources})
target_link_libraries(kv_gdi PRIVATE Freetype::Freetype Fontconfig::Fontconfig)
