# The target `coverage` builds and runs the suite and prints the line coverage of the system and its contracts.
# Programs that a test lets run out of file size can't write their counts; that must not show in what they print.
find_program(KV_GCOVR NAMES gcovr REQUIRED DOC "Coverage report (Debian: gcovr)")
add_custom_target(coverage
  COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR}
  COMMAND find ${PROJECT_BINARY_DIR} -name *.gcda -delete
  COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen GCOV_ERROR_FILE=/dev/null
          ${CMAKE_CTEST_COMMAND} -j 2 --output-on-failure --progress
  COMMAND ${KV_GCOVR} --root ${PROJECT_SOURCE_DIR} --filter "${PROJECT_SOURCE_DIR}/C/" --filter "${PROJECT_SOURCE_DIR}/contracts/"
          --exclude-unreachable-branches --gcov-ignore-parse-errors --print-summary
  WORKING_DIRECTORY ${PROJECT_BINARY_DIR} USES_TERMINAL VERBATIM)
