# Linux on 64-bit ARM, by Debian's g++-aarch64-linux-gnu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_FIND_ROOT_PATH /usr/aarch64-linux-gnu)
# Static programs need nothing of that machine but its kernel.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
include(${CMAKE_CURRENT_LIST_DIR}/header_only_packages.cmake)
