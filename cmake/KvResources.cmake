# Compiles resources/kv.rc to the standard binary form (.res) and wraps it as data that kv::core links in.
find_program(KV_WINDRES NAMES x86_64-w64-mingw32-windres REQUIRED
  DOC "Resource compiler (Debian: binutils-mingw-w64-x86-64)")
file(GLOB_RECURSE kv_resource_inputs CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/resources/*.rc ${PROJECT_SOURCE_DIR}/resources/*.h
  ${PROJECT_SOURCE_DIR}/resources/*.bmp ${PROJECT_SOURCE_DIR}/resources/*.cur)
set(kv_res ${PROJECT_BINARY_DIR}/kv.res)
add_custom_command(OUTPUT ${kv_res}
  COMMAND ${KV_WINDRES} --preprocessor=${CMAKE_C_COMPILER} --preprocessor-arg=-E --preprocessor-arg=-xc-header
          --preprocessor-arg=-DRC_INVOKED -c 65001 -O res -I ${PROJECT_SOURCE_DIR}/resources
          -i ${PROJECT_SOURCE_DIR}/resources/kv.rc -o ${kv_res}
  DEPENDS ${kv_resource_inputs} WORKING_DIRECTORY ${PROJECT_SOURCE_DIR}/resources VERBATIM)
set(KV_RESOURCE_OBJECT ${PROJECT_BINARY_DIR}/kv_res.S)
file(GENERATE OUTPUT ${KV_RESOURCE_OBJECT} CONTENT
"        .section .rodata
        .global kv_resource_begin
        .global kv_resource_end
        .balign 16
kv_resource_begin:
        .incbin \"${kv_res}\"
kv_resource_end:
        .byte 0
        .section .note.GNU-stack,\"\",%progbits
")
set_source_files_properties(${KV_RESOURCE_OBJECT} PROPERTIES GENERATED TRUE OBJECT_DEPENDS ${kv_res})
