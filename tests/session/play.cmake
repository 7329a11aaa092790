# Plays SESSION with PLAYER in an empty folder OUT and holds what it says against NAME.expected and NAME.error.
cmake_path(GET SESSION PARENT_PATH folder)
cmake_path(GET SESSION STEM LAST_ONLY stem)
cmake_path(GET SESSION FILENAME file)
file(REMOVE_RECURSE ${OUT})
file(MAKE_DIRECTORY ${OUT})

execute_process(COMMAND ${PLAYER} ${file} --out ${OUT} WORKING_DIRECTORY ${folder}
  OUTPUT_FILE ${OUT}/actual.out ERROR_FILE ${OUT}/actual.err RESULT_VARIABLE code)

# Holds an output against what is expected of it.
function(compare actual expected)
  if(NOT EXISTS ${expected})
    set(expected ${OUT}/nothing)
    file(WRITE ${expected} "")
  endif()
  execute_process(COMMAND diff -u ${expected} ${actual} RESULT_VARIABLE differs OUTPUT_VARIABLE difference)
  if(differs)
    message(SEND_ERROR "${difference}")
  endif()
endfunction()

# Failures name files by their whole path, which is another one in each build.
file(READ ${OUT}/actual.out said)
string(REPLACE "${OUT}/" "" said "${said}")
file(WRITE ${OUT}/actual.out "${said}")

compare(${OUT}/actual.out ${folder}/${stem}.expected)
compare(${OUT}/actual.err ${folder}/${stem}.error)
set(wanted 0)
if(EXISTS ${folder}/${stem}.error)
  set(wanted 2)
endif()
if(NOT code STREQUAL wanted)
  message(SEND_ERROR "exit code ${code} instead of ${wanted}")
endif()
