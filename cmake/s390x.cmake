# Linux on s390x, whose bytes come the other way round, by Debian's g++-s390x-linux-gnu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(CMAKE_CXX_COMPILER s390x-linux-gnu-g++)
set(CMAKE_FIND_ROOT_PATH /usr/s390x-linux-gnu)
# Static programs need nothing of that machine but its kernel.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
include(${CMAKE_CURRENT_LIST_DIR}/header_only_packages.cmake)
