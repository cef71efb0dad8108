# Fails unless a document shows what a run of the tool prints and how it ends:
# -DDOCUMENT=<file> -DTOOL=<tool> -DFOLDER=<folder to run it in> -DARGUMENTS=<arguments, blanks between them>

separate_arguments(arguments UNIX_COMMAND "${ARGUMENTS}")
execute_process(COMMAND "${TOOL}" ${arguments}
    WORKING_DIRECTORY "${FOLDER}"
    OUTPUT_VARIABLE output
    ERROR_VARIABLE errors
    RESULT_VARIABLE status)

file(READ "${DOCUMENT}" document)
set(shown "\n```text\n$ ./run ${ARGUMENTS}; echo $?\n${output}${errors}${status}\n```\n")
string(FIND "${document}" "${shown}" place)
if(place EQUAL -1)
    message(FATAL_ERROR "${DOCUMENT} does not show:\n${shown}")
endif()
