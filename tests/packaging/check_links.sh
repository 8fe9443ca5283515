#!/usr/bin/env bash
# Finds links in the documents that lead to a file or heading that does not exist.
# usage: check_links.sh FOLDER
set -u
cd "$1" || exit 1

failures=0
count=0
# The anchors of a document's headings: lower case, punctuation dropped, blanks as dashes.
anchors() { sed -n 's/^#\+ //p' "$1" | tr '[:upper:]' '[:lower:]' | sed 's/[^a-z0-9 _-]//g; s/ /-/g'; }

for document in ./*.md docs/*.md; do
    while read -r link; do
        case $link in http://* | https://* | mailto:*) continue ;; esac
        count=$((count + 1))
        file=${link%%#*}
        target=$(dirname "$document")/$file
        [ -n "$file" ] || target=$document
        if [ ! -e "$target" ]; then
            echo "$document: $link leads nowhere"
            failures=$((failures + 1))
        elif [[ $link == *"#"* ]] && ! anchors "$target" | grep -qxF "${link#*#}"; then
            echo "$document: $link: no such heading"
            failures=$((failures + 1))
        fi
    done < <(grep -oE '\]\([^) ]+\)' "$document" | sed 's/^](//; s/)$//')
done
[ $count -gt 0 ] && [ $failures -eq 0 ]
