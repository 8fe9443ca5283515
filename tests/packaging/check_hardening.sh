#!/usr/bin/env bash
# Reads built programs and says which protection one of them lacks.
# usage: check_hardening.sh BUILD_TYPE PROGRAM...
set -u

build_type=$1
shift
failures=0
expect() {
    local what=$1
    shift
    "$@" || {
        echo "$program: $what is missing"
        failures=$((failures + 1))
    }
}
header_says() { readelf -h "$program" | grep "$1" >/dev/null; }
segments_say() { readelf -lW "$program" | grep "$1" >/dev/null; }
dynamic_says() { readelf -dW "$program" | grep -E "$1" >/dev/null; }
imports() { readelf -sW "$program" | grep -E "UND.*$1" >/dev/null; }
stack_is_not_executable() { readelf -lW "$program" | grep GNU_STACK | grep -v E >/dev/null; }
# The C library's start files carry no mark of it, so the linker writes none: look at the code itself.
branches_are_marked() { [ "$(objdump -d "$program" | grep -c endbr64)" -gt 50 ]; }

for program in "$@"; do
    [ -x "$program" ] || {
        echo "$program: no such program"
        exit 1
    }
    expect "position-independent code" header_says 'Type:.*DYN'
    expect "read-only relocations" segments_say GNU_RELRO
    expect "immediate binding" dynamic_says 'BIND_NOW|FLAGS.*NOW'
    expect "a stack that is no code" stack_is_not_executable
    expect "stack protection" imports __stack_chk_fail
    if [ "$(uname -m)" = x86_64 ]; then
        expect "control-flow protection" branches_are_marked
    fi
    if [ "$build_type" != Debug ]; then
        expect "fortified library calls" imports '__[a-z]+_chk'
    fi
done
[ $failures -eq 0 ]
