#!/usr/bin/env bash
# Says which of the files and folders of the tree that the documents name are not there.
# usage: check_named_files.sh FOLDER
set -u
cd "$1" || exit 1

folders=$(find . -maxdepth 1 -type d -name '[a-z]*' ! -name build -printf '%f|')
names=$(mktemp) || exit 1
trap 'rm -f "$names"' EXIT
find . -path ./build -prune -o -path ./.git -prune -o -type f -printf '%f\n' >"$names"

failures=0
count=0
for document in ./*.md docs/*.md; do
    # With a room in front it is a path; without, sources and the like have names of their own.
    while read -r name; do
        count=$((count + 1))
        if [[ $name == */* ]]; then
            [ -e "$name" ] && continue
        else
            # The build makes some of NAME.in.
            grep -qxF -e "$name" -e "$name.in" "$names" && continue
        fi
        echo "$document names $name, which is not there"
        failures=$((failures + 1))
    done < <(grep -oE '`[^` ]+`' "$document" | tr -d '`' |
        grep -E "^(${folders%|})/[A-Za-z0-9_./-]+\$|^[a-z0-9_-]+\.(cpp|h|sh|py|ui|cmake|in)\$" | sort -u)
done
[ $count -gt 0 ] || echo "the documents name no file"
[ $count -gt 0 ] && [ $failures -eq 0 ]
