#!/usr/bin/env bash
# Whether pinorama-newest shows the file of the command that was started last, also when an earlier one gets the
# processor later.
# usage: check_newest_hook.sh HOOKS_FOLDER
set -u
hook=$(realpath "$1")/pinorama-newest
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
export XDG_RUNTIME_DIR=$folder HOOK_LOG=$folder/log PATH=$folder:$PATH
# shellcheck disable=SC2016  # the stand-in expands them
printf '#!/bin/sh\necho "$2" >>"$HOOK_LOG"\n' >"$folder/pinorama"
chmod +x "$folder/pinorama"
failures=0
expect() {
    [ "$(cat "$HOOK_LOG" 2>/dev/null)" = "$1" ] && return
    echo "expected ${1@Q}, got $(cat "$HOOK_LOG")"
    failures=$((failures + 1))
}

"$hook" lf-1 first
sh -c "until [ -e '$folder/go' ]; do sleep 0.05; done; exec '$hook' lf-1 late" &
sleep 0.1 # the start of a process is known in hundredths of a second
"$hook" lf-1 last
touch "$folder/go"
wait
expect $'first\nlast'

"$hook" lf-1 last
expect $'first\nlast' # shown already
"$hook" lf-1 'a b'\''c %$;&.jpg'
"$hook" lf-2 last
expect $'first\nlast\na b\'c %$;&.jpg\nlast'
[ "$failures" -eq 0 ]
