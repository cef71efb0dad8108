# Fails unless a document shows a program word by word: -DDOCUMENT=<file> -DPROGRAM=<file>

file(READ "${DOCUMENT}" document)
file(READ "${PROGRAM}" program)
string(FIND "${document}" "\n```cpp\n${program}```\n" place)
if(place EQUAL -1)
    message(FATAL_ERROR "${DOCUMENT} does not show ${PROGRAM} as it is")
endif()
