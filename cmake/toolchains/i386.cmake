# 32-bit x86, built with the Debian package g++-i686-linux-gnu. The programs run on a 64-bit x86
# kernel as they are; their loader and libraries lie in the cross compiler's folder, so that nothing
# has to be added to the machine's own.
#
#   cmake --preset i386 && cmake --build --preset i386
#   cmake --install build/i386 --prefix /somewhere
#
# A program that uses the installed library is built with the same file; CMAKE_FIND_ROOT_PATH names
# where the library lies:
#
#   cmake -S program -B build -DCMAKE_TOOLCHAIN_FILE=i386.cmake -DCMAKE_FIND_ROOT_PATH=/somewhere
#
# pkg-config finds it with PKG_CONFIG_LIBDIR=/somewhere/lib/pkgconfig. For another compiler, or another
# root folder of the machine, make a copy of this file.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-linux-gnu-gcc) # asked for by GoogleTest alone
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)
list(APPEND CMAKE_FIND_ROOT_PATH /usr/i686-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR
    /usr/i686-linux-gnu/lib/ld-linux.so.2 --library-path /usr/i686-linux-gnu/lib)
