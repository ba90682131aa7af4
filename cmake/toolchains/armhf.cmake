# 32-bit ARM, built with the Debian package g++-arm-linux-gnueabihf; the tests run under qemu-user.
#
#   cmake --preset armhf && cmake --build --preset armhf
#   cmake --install build/armhf --prefix /somewhere
#
# A program that uses the installed library is built with the same file; CMAKE_FIND_ROOT_PATH names
# where the library lies:
#
#   cmake -S program -B build -DCMAKE_TOOLCHAIN_FILE=armhf.cmake -DCMAKE_FIND_ROOT_PATH=/somewhere
#
# pkg-config finds it with PKG_CONFIG_LIBDIR=/somewhere/lib/pkgconfig. For another compiler, or another
# root folder of the machine, make a copy of this file.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc) # asked for by GoogleTest alone
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
list(APPEND CMAKE_FIND_ROOT_PATH /usr/arm-linux-gnueabihf)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L /usr/arm-linux-gnueabihf)
