# The installed package: find_package(Kv COMPONENTS core ui gdi).
include(CMakePackageConfigHelpers)
set(kv_targets kv_gdi kv_core)
if(TARGET kv_ui)
  list(APPEND kv_targets kv_ui)
endif()
install(TARGETS ${kv_targets} EXPORT KvTargets)
install(DIRECTORY platform contracts C resources DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kv
  FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE)
install(EXPORT KvTargets NAMESPACE kv:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Kv)
configure_package_config_file(cmake/KvConfig.cmake.in ${PROJECT_BINARY_DIR}/KvConfig.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Kv)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/KvConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/KvConfig.cmake ${PROJECT_BINARY_DIR}/KvConfigVersion.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Kv)
