#!/usr/bin/env bash
# Gives scripts/test-summary what ctest may have printed, and compares what it makes of it.
# usage: check_test_summary.sh SOURCE_FOLDER
set -euo pipefail
source=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failures=0

# summarises NAME: compares the summary of $folder/output and $folder/log with the standard input.
summarises() {
    cat >"$folder/expected"
    "$source/scripts/test-summary" "$folder/output" "$folder/log" | diff - "$folder/expected" || {
        echo "$1: another summary"
        failures=$((failures + 1))
    }
}

cat >"$folder/output" <<'EOT'
      Start  1: Package.makesIt
 1/6 Test  #1: Package.makesIt ............................   Passed    1.46 sec
 2/6 Test  #2: Package.readsTheCollection .................***Skipped   1.19 sec
 3/6 Test #13: Package.readsItAgain .......................***Skipped   1.19 sec
 4/6 Test #14: desktop_bus ................................***Skipped   0.10 sec
 5/6 Test #15: mute .......................................***Skipped   0.10 sec
 6/6 Test #16: wrong ......................................***Failed    0.10 sec
 7/8 Test #17: slow .......................................***Timeout  10.00 sec
 8/8 Test #18: desktop_nemo ...............................   Passed   10.00 sec

75% tests passed, 2 tests failed out of 8
EOT
cat >"$folder/log" <<'EOT'
1/8 Testing: Package.makesIt
[       OK ] Package.makesIt (3 ms)
2/8 Testing: Package.readsTheCollection
../package_test.cpp:133: Skipped
the collection is not there
3/8 Testing: Package.readsItAgain
../package_test.cpp:140: Skipped
the collection is not there
4/8 Testing: desktop_bus
skipped: dbus-monitor not installed
5/8 Testing: mute
6/8 Testing: wrong
8/8 Testing: desktop_nemo
nemo: twoPanes: skipped: this version has none (0.3 s)
EOT
summarises "all kinds" <<'EOT'
skipped: dbus-monitor not installed
skipped: mute gives no reason
skipped: the collection is not there (2 times)
skipped: this version has none
2 passed, 2 failed, 4 skipped
EOT

: >"$folder/log"
echo '1/1 Test #1: alone ....   Passed    0.01 sec' >"$folder/output"
summarises "one that passes" <<<'1 passed, 0 failed, 0 skipped'

cat >"$folder/output" <<'EOT'
 1/3 Test #7: desktop_nemo ...............................***Failed   10.00 sec
 2/3 Test #8: desktop_caja ...............................***Failed   10.00 sec
 3/3 Test #9: desktop_thunar .............................   Passed   10.00 sec
 1/2 Test #7: desktop_nemo ...............................   Passed   10.00 sec
 2/2 Test #8: desktop_caja ...............................***Timeout  10.00 sec
EOT
summarises "two that were run again" <<'EOT'
passed only when run again, alone: desktop_nemo
2 passed, 1 failed, 0 skipped
EOT

printf '%d failures\n' $failures
[ $failures -eq 0 ]
