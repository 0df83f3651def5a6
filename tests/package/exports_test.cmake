# Runs with cmake -P: the shared library's dynamic symbols hold nothing internal.
execute_process(COMMAND ${NM} -D -C --defined-only "${LIBRARY}"
    RESULT_VARIABLE rc OUTPUT_VARIABLE symbols ERROR_VARIABLE err)
if(NOT rc EQUAL 0)
    message(FATAL_ERROR "nm failed (${rc}): ${err}")
endif()
string(REGEX MATCHALL "[^\n]*Bedrock::[^\n]*" internal "${symbols}")
if(internal)
    list(JOIN internal "\n" internal)
    message(FATAL_ERROR "internal names exported:\n${internal}")
endif()
# A public name is there, so the check above read a real symbol table.
if(NOT symbols MATCHES "CFloatField::")
    message(FATAL_ERROR "no public name found in the symbol table")
endif()
