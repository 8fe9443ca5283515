#!/usr/bin/env bash
# Finds tests that a document names and that do not exist.
# usage: check_named_tests.sh SOURCE_FOLDER DOCUMENT
set -u
cd "$1" || exit 1

missing=0
count=0
while IFS=. read -r suite name; do
    count=$((count + 1))
    # A long name stands on the next line.
    grep -rqPzo "TEST(_F|_P)?\($suite,\s*$name\)" tests --include='*.cpp' && continue
    echo "$2 names $suite.$name, which does not exist"
    missing=1
done < <(grep -oE '`[A-Za-z][A-Za-z0-9_]*\.[a-z][A-Za-z0-9]{8,}`' "$2" | tr -d '`' | sort -u)
[ $count -gt 0 ] || {
    echo "$2 names no test"
    missing=1
}
exit $missing
