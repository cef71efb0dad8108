# What `cmake --install` puts where: the rules of GNUInstallDirs, in the components that the Debian packages are made
# of. Every component is one package.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(TOBRIX_INCLUDE_FOLDER "${CMAKE_INSTALL_INCLUDEDIR}/TobrixTemplates")
set(TOBRIX_PACKAGE_FOLDER "${CMAKE_INSTALL_LIBDIR}/cmake/TobrixTemplates")

# tobrix_compress(<file> <compressed file>): as Debian wants it, without the time of compression.
function(tobrix_compress file compressed)
    execute_process(COMMAND gzip -9 --no-name --stdout "${file}" OUTPUT_FILE "${compressed}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# tobrix_install_library(<target> <name> <component>): a shared library, its headers, its pkg-config file, and the
# targets file by which other builds know it as Tobrix::<name>.
function(tobrix_install_library target name component)
    set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
    install(TARGETS ${target} EXPORT ${target}Targets
        LIBRARY
            DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT ${component} NAMELINK_COMPONENT Development
        FILE_SET HEADERS
            DESTINATION "${TOBRIX_INCLUDE_FOLDER}" COMPONENT Development
        FILE_SET generated_headers
            DESTINATION "${TOBRIX_INCLUDE_FOLDER}" COMPONENT Development)
    install(EXPORT ${target}Targets
        NAMESPACE Tobrix::
        DESTINATION "${TOBRIX_PACKAGE_FOLDER}" COMPONENT Development)

    # Relative to the file itself, so that a prefix may be moved.
    set(folder "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
    file(RELATIVE_PATH to_prefix "/${folder}" "/")
    configure_file("${PROJECT_SOURCE_DIR}/cmake/${target}.pc.in" "${PROJECT_BINARY_DIR}/pkgconfig/${target}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/pkgconfig/${target}.pc" DESTINATION "${folder}" COMPONENT Development)
endfunction()

# tobrix_install_package(): the files that find_package(TobrixTemplates) reads.
function(tobrix_install_package)
    set(build_folder "${PROJECT_BINARY_DIR}/package")
    configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/TobrixTemplatesConfig.cmake.in"
        "${build_folder}/TobrixTemplatesConfig.cmake"
        INSTALL_DESTINATION "${TOBRIX_PACKAGE_FOLDER}")
    write_basic_package_version_file("${build_folder}/TobrixTemplatesConfigVersion.cmake"
        COMPATIBILITY SameMajorVersion)
    install(
        FILES
            "${build_folder}/TobrixTemplatesConfig.cmake"
            "${build_folder}/TobrixTemplatesConfigVersion.cmake"
        DESTINATION "${TOBRIX_PACKAGE_FOLDER}" COMPONENT Development)
endfunction()

# tobrix_install_tool(<target>): the command line tool with its man page and its completion for bash.
function(tobrix_install_tool target)
    file(RELATIVE_PATH to_libraries "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
    # A prefix that the dynamic linker does not search still has to give a tool that starts.
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/${to_libraries}")
    install(TARGETS ${target} RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Tool)

    set(man_page "${CMAKE_CURRENT_BINARY_DIR}/${target}.1")
    configure_file(${target}.1.in "${man_page}" @ONLY)
    if(TOBRIX_DEBIAN_PACKAGES)
        tobrix_compress("${man_page}" "${man_page}.gz")
        string(APPEND man_page ".gz")
    endif()
    install(FILES "${man_page}"
        DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT Tool)
    install(FILES ${target}.bash
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME ${target} COMPONENT Tool)
endfunction()
