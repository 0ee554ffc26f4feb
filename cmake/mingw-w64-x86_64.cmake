# Cross-building korvane.exe with Debian's MinGW-w64 (the "posix" threading
# flavour, which has std::thread and std::mutex). Tests run through Wine.
#   cmake -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake -DKORVANE_DEPS=<prefix> ...
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(KORVANE_MINGW x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${KORVANE_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${KORVANE_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${KORVANE_MINGW}-windres)

# Libraries and headers come from the MinGW sysroot and our own dependency
# prefix only; the build machine's /usr/include is for another system.
set(KORVANE_DEPS "" CACHE PATH "Prefix of the cross-built dependencies (SQLite, GoogleTest)")
set(CMAKE_FIND_ROOT_PATH /usr/${KORVANE_MINGW} ${KORVANE_DEPS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# One self-contained program: no MinGW runtime DLLs beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")

set(CMAKE_CROSSCOMPILING_EMULATOR wine)
