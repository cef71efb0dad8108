# Flags that every target of the project is compiled with: tobrix_compiler_flags(<target>).

function(tobrix_compiler_flags target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
    if(TOBRIX_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS
        QT_NO_CAST_FROM_ASCII
        QT_NO_CAST_TO_ASCII
        # The raw record keeps several values a key in a QMap; the calls for that carry a deprecation mark
        # only since Qt 5.15, in favour of a type that the record does not use.
        QT_DEPRECATED_WARNINGS_SINCE=0x050E00)
    set_target_properties(${target} PROPERTIES
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    if(TOBRIX_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${TOBRIX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${TOBRIX_SANITIZE})
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            # The sanitizers' code keeps GCC from seeing that an empty optional is not read.
            target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized)
        endif()
    endif()
endfunction()
