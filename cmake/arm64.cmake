# A store for ARM, made on another machine with Debian's own cross compiler (crossbuild-essential-arm64) and the
# packages of `scripts/setup run` for arm64 beside this machine's qt6-base-dev and qt6-svg-dev:
#   cmake --preset release -DCMAKE_TOOLCHAIN_FILE=cmake/arm64.cmake
# What the build runs of its own runs in qemu-user.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64;-L;/)
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/aarch64-linux-gnu/pkgconfig:/usr/share/pkgconfig)
