# Linux on 32-bit x86 with SSE2, by Debian's g++-i686-linux-gnu. The older x87 arithmetic would round otherwise.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse")
set(CMAKE_FIND_ROOT_PATH /usr/i686-linux-gnu)
# Static programs need nothing of that machine but its kernel.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
include(${CMAKE_CURRENT_LIST_DIR}/header_only_packages.cmake)
