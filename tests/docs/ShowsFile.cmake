# Fails unless a document shows a file word by word: -DDOCUMENT=<file> -DSHOWN=<file> -DLANGUAGE=<of the code block>

file(READ "${DOCUMENT}" document)
file(READ "${SHOWN}" shown)
string(FIND "${document}" "\n```${LANGUAGE}\n${shown}```\n" place)
if(place EQUAL -1)
    message(FATAL_ERROR "${DOCUMENT} does not show ${SHOWN} as it is")
endif()
