#!/bin/sh
# Installs the build into a scratch prefix, then builds a small program
# against the installed library twice, through pkg-config and through
# find_package, and runs both; also runs the installed program.
# Usage: install_and_consume.sh <build dir> <consumer source dir>
set -eu
build=$1
consumer=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
prefix=$scratch/prefix

cmake --install "$build" --prefix "$prefix" >/dev/null
for f in bin/kelvar lib/libvdlsr.so.1 lib/libvdls.so.1 lib/libvdlcore.so.1 \
         include/vdl/vdlsr.h lib/pkgconfig/vdl.pc lib/cmake/vdl/vdlConfig.cmake; do
    [ -e "$prefix/$f" ] || { echo "not installed: $f"; exit 1; }
done
# The installed program finds the installed libraries on its own.
"$prefix/bin/kelvar" -v >/dev/null
ldd "$prefix/bin/kelvar" | grep -q "$prefix/bin/../lib/libvdlsr.so.1" ||
    { echo "installed kelvar does not load the installed library"; ldd "$prefix/bin/kelvar"; exit 1; }

# pkg-config
cc -o "$scratch/by_pkgconfig" "$consumer/consumer.c" \
    $(PKG_CONFIG_PATH="$prefix/lib/pkgconfig" pkg-config --cflags --libs vdl)
LD_LIBRARY_PATH="$prefix/lib" "$scratch/by_pkgconfig"

# find_package
cmake -S "$consumer" -B "$scratch/by_cmake" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$scratch/by_cmake" >/dev/null
"$scratch/by_cmake/consumer"
