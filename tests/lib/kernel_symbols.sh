#!/bin/sh
# Kernel objects of one code path may define no symbol that another path's
# objects could also define: the linker would keep one copy for both, and a
# path could end up running another's instructions. Only the path's kernel
# tables, named *_<path>, are visible outside their object.
# Usage: kernel_symbols.sh <path> <object>...
path=$1
shift
status=0
for object in "$@"; do
    # The sanitizer's own markers of globals are left aside.
    shared=$(nm -C --defined-only "$object" | awk '$2 ~ /[A-Z]|u|v|w/ {print}' |
             grep -v -e "_${path}\$" -e " __odr_asan")
    if [ -n "$shared" ]; then
        echo "$object defines symbols outside the $path path:"
        echo "$shared"
        status=1
    fi
done
exit $status
