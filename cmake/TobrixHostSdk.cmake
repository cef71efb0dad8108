# Builds a target against a host's own SDK: <sdk>/include/host/<Interface>.h for every interface the library
# calls, and the libraries in <sdk>/lib that implement them.

set(TOBRIX_HOST_HEADERS
    CCatalogDescriptor.h
    CCatalogTemplateRegistry.h
    CLogger.h
    CTableDescriptors.h
    CTemplateDescriptor.h
    CoreApplication.h)

function(tobrix_use_host_sdk target sdk)
    # A header missing from the SDK would silently be taken from src/host, with another class layout.
    foreach(header IN LISTS TOBRIX_HOST_HEADERS)
        if(NOT EXISTS "${sdk}/include/host/${header}")
            message(FATAL_ERROR "TOBRIX_HOST_SDK=${sdk}: there is no include/host/${header}")
        endif()
    endforeach()
    file(GLOB libraries CONFIGURE_DEPENDS "${sdk}/lib/lib*.so")
    if(NOT libraries)
        message(FATAL_ERROR "TOBRIX_HOST_SDK=${sdk}: there is no shared library in lib/")
    endif()
    target_include_directories(${target} BEFORE PUBLIC "$<BUILD_INTERFACE:${sdk}/include>")
    # An installed library does not know where its consumers keep the SDK: they bring it themselves.
    target_link_libraries(${target} PUBLIC "$<BUILD_INTERFACE:${libraries}>")
endfunction()
