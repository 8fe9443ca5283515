#!/usr/bin/env bash
# Says which library a built program loads when it starts besides those that it may load.
# usage: check_libraries.sh PROGRAM LIBRARY...
set -u

program=$1
shift
[ -x "$program" ] || {
    echo "$program: no such program"
    exit 1
}
status=0
for library in $(readelf -dW "$program" | sed -n 's/.*(NEEDED).*\[\(.*\)\.so.*/\1/p'); do
    case " $* " in
    *" $library "*) ;;
    *)
        echo "$program loads $library"
        status=1
        ;;
    esac
done
exit $status
