# Runs COMMAND with its output in a file: what Wine starts along with a program holds on to the
# program's output, and the build would wait for that.
execute_process(COMMAND ${COMMAND} OUTPUT_FILE write_types.log ERROR_FILE write_types.log
                RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    file(READ write_types.log said)
    message(FATAL_ERROR "The type library could not be written (${result}):\n${said}")
endif()
