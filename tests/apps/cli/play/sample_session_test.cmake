# Plays the sample session and looks for what a reader of scripts/demo is promised.
execute_process(COMMAND ${PROGRAM} play --view ${SESSION}
  WORKING_DIRECTORY ${SAMPLES} RESULT_VARIABLE status OUTPUT_VARIABLE output)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "the session was not understood (${status}):\n${output}")
endif()
foreach(promise
    "▸ BT150-63/B" "brandChanged\\(BÄRENTAL\\)" "brandChanged\\(ÉLANOR\\)"
    "An error has occurred while looking up" "UpdateKeyscout"
    "tryToUnlock\n    = -1" "key Backspace\n.*BT100-16 ")
  if(NOT output MATCHES "${promise}")
    message(FATAL_ERROR "\"${promise}\" is missing in:\n${output}")
  endif()
endforeach()
