# What cpack makes: an archive of all that is installed, and Debian packages, split as Debian would.
set(CPACK_PACKAGE_NAME quorvane)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Quorvane maintainers")
set(CPACK_PACKAGE_CONTACT "Quorvane maintainers <maintainers@example.org>")
string(TOLOWER "quorvane-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}" CPACK_PACKAGE_FILE_NAME)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR TGZ)
endif()

# Folders of all programs take no readme.txt.
get_cmake_property(CPACK_COMPONENTS_ALL COMPONENTS)
list(REMOVE_ITEM CPACK_COMPONENTS_ALL beside Unspecified)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE quorvane)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION TRUE)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianFiles.cmake)

set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)

set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME quorvane)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION misc)
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION
"learns to judge chess positions from played games
quorvane-learn reads games in PGN and writes a network of weighted patterns of
pieces, network.dat. quorvane-inspect shows what was learned: the patterns, the
value of a position and its reasons, and how good the network is on games.
quorvane-play plays by it in chess windows that speak UCI, and lets networks
play matches.")

set(library "evaluates chess positions by what quorvane-learn has learned")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libquorvane-evaluator${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_MULTIARCH same)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
"${library} - library
The library reads a network.dat, and gives the value of a position, or of each
of its pieces, to programs in C or whatever calls C.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libquorvane-evaluator-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
"${library} - header
What a program is built with that evaluates positions: the header, its manual
page, the static library, and how CMake and pkg-config find them.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-quorvane)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS python3)
set(CPACK_COMPONENT_PYTHON_DEPENDS runtime)
set(CPACK_COMPONENT_PYTHON_DESCRIPTION
"${library} - Python module
The module reads a network.dat, and gives the value of a position, or of each
of its pieces, to programs in Python.")

include(CPack)
