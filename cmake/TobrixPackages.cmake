# Debian packages of the installed components: one package a component. scripts/package makes them.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "Tobrix")
set(CPACK_PACKAGE_CONTACT "Tobrix maintainers <maintainers@tobrix.example>")
# With any other summary than this, CPack would put it above the descriptions below, whose first lines are summaries.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${CMAKE_PROJECT_NAME} built using CMake")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Library StandaloneHost Development Tool)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/src;${PROJECT_BINARY_DIR}/standalone_host")
set(debian_version "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")

set(library_package "libtobrixtemplates${PROJECT_VERSION_MAJOR}")
set(host_package "libtobrixstandalonehost${PROJECT_VERSION_MAJOR}")
set(both_libraries "${library_package} (= ${debian_version}), ${host_package} (= ${debian_version})")

tobrix_compress("${PROJECT_SOURCE_DIR}/packaging/changelog" "${PROJECT_BINARY_DIR}/changelog.Debian.gz")

# tobrix_debian_package(<component> <package> <section> <dependencies> <description>)
macro(tobrix_debian_package component package section dependencies description)
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${dependencies}")
    set(CPACK_DEBIAN_${upper}_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${description}")
    install(FILES "${PROJECT_SOURCE_DIR}/packaging/copyright" "${PROJECT_BINARY_DIR}/changelog.Debian.gz"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component})
endmacro()

tobrix_debian_package(Library ${library_package} libs ""
"catalogue templates of pipe networks, library
Reads catalogue templates, XML files that tell a host program how to
present and edit one kind of record of a pipe network, and gives the
host one object graph, whichever of two formats the file has.

The program that uses the library has to supply a few symbols of its
own, or use the standalone host.")
tobrix_debian_package(StandaloneHost ${host_package} libs ""
"catalogue templates of pipe networks, standalone host
Supplies the library that reads catalogue templates with a log, a
registry of templates and the types of database tables, for programs
that have no other host.")
tobrix_debian_package(Development libtobrixtemplates-dev libdevel "${both_libraries}, qtbase5-dev (>= 5.15)"
"catalogue templates of pipe networks, development files
Headers, CMake package and pkg-config files for programs that read
catalogue templates.")
tobrix_debian_package(Tool tobrix-template utils "${host_package} (= ${debian_version})"
"look at catalogue templates of pipe networks
Prints what a host program would get of a catalogue template: header,
views with their columns, value lists and legends; for people or as
JSON.")

# The dynamic linker has to learn of a new library.
foreach(component IN ITEMS LIBRARY STANDALONEHOST)
    set(CPACK_DEBIAN_${component}_PACKAGE_CONTROL_EXTRA "${PROJECT_SOURCE_DIR}/packaging/triggers")
endforeach()

include(CPack)
