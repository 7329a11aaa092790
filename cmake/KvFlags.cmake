# Compiler settings that every target of the project shares. `kv_flags` is private to the build and never exported.
add_library(kv_flags INTERFACE)
target_compile_features(kv_flags INTERFACE cxx_std_20)
# Geometry promises IEEE doubles in the stated order: a contraction into FMA would change results.
target_compile_options(kv_flags INTERFACE -Wall -Wextra -ffp-contract=off)
# g++ 12 warns of overlapping copies inside its own string class, at -O3 only, where there are none.
target_compile_options(kv_flags INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(KV_WERROR)
  target_compile_options(kv_flags INTERFACE -Werror)
endif()
if(KV_SANITIZE)
  target_compile_options(kv_flags INTERFACE -fsanitize=${KV_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(kv_flags INTERFACE -fsanitize=${KV_SANITIZE})
endif()
if(KV_COVERAGE)
  target_compile_options(kv_flags INTERFACE --coverage -O0)
  target_link_options(kv_flags INTERFACE --coverage)
endif()

# kv_library(NAME SOURCES...): a library of the project, exported as kv::NAME.
function(kv_library name)
  add_library(kv_${name} ${ARGN})
  add_library(kv::${name} ALIAS kv_${name})
  set_target_properties(kv_${name} PROPERTIES EXPORT_NAME ${name} POSITION_INDEPENDENT_CODE ON)
  target_compile_features(kv_${name} PUBLIC cxx_std_20)
  target_include_directories(kv_${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/kv>)
  target_link_libraries(kv_${name} PRIVATE $<BUILD_INTERFACE:kv_flags>)
endfunction()
