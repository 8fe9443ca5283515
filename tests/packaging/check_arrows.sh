#!/usr/bin/env bash
# Compares the table of folders in docs/architecture.md with what the targets of the folders link: a folder
# links only what the table lets it use, and every folder with sources is in the table.
# usage: check_arrows.sh SOURCE_FOLDER ARROWS
#   ARROWS   a line for each target: its name, its folder, what it links
set -u
cd "$1" || exit 1
arrows=$2

declare -A folder_of allowed
while read -r target folder _; do folder_of[$target]=$folder; done <"$arrows"
while IFS='|' read -r _ folder _ uses _; do
    folder=${folder//[\`\/ ]/}
    allowed[$folder]=$uses
done < <(grep -E '^\| `[a-z]+/` \|' docs/architecture.md)

failures=0
complain() {
    echo "$*"
    failures=$((failures + 1))
}

# may_use FOLDER NAME: whether the row of FOLDER names it, or the row of a folder that FOLDER may use.
may_use() {
    local other
    [[ ${allowed[$1]} == *"$2"* ]] && return 0
    for other in "${!allowed[@]}"; do
        [[ $other != "$1" && ${allowed[$1]} == *"\`$other\`"* ]] && may_use "$other" "$2" && return 0
    done
    return 1
}

count=0
while read -r target folder links; do
    [ -n "${allowed[$folder]:-}" ] || {
        complain "docs/architecture.md has no row for $folder/"
        continue
    }
    [ "$folder" != app ] || continue  # may use everything
    for link in $links; do
        count=$((count + 1))
        case $link in
        # The last marks where CMake noted that another folder links something.
        pinorama_options | *pinorama_warnings* | ::@*) continue ;;
        pinorama_*)
            other=${folder_of[$link]:-}
            [ "$other" = "$folder" ] || may_use "$folder" "\`$other\`" ||
                complain "$target links $link, but $folder/ may not use $other/"
            ;;
        *Qt6::*) may_use "$folder" Qt || complain "$target links Qt" ;;
        ICU::*) may_use "$folder" ICU || complain "$target links ICU" ;;
        *JPEG::*) may_use "$folder" libjpeg-turbo || complain "$target links libjpeg-turbo" ;;
        *PNG::*) may_use "$folder" libpng || complain "$target links libpng" ;;
        *GEOGRAPHICLIB*) may_use "$folder" GeographicLib || complain "$target links GeographicLib" ;;
        *LibRaw*) may_use "$folder" LibRaw || complain "$target links LibRaw" ;;
        SQLite::*) may_use "$folder" SQLite || complain "$target links SQLite" ;;
        nlohmann_json::*) may_use "$folder" nlohmann-json || complain "$target links nlohmann-json" ;;
        *) complain "$target links $link, of which the table says nothing" ;;
        esac
    done
done <"$arrows"

for folder in "${!allowed[@]}"; do
    [ -e "$folder/CMakeLists.txt" ] || complain "docs/architecture.md names $folder/, which is not there"
done
while read -r folder; do
    case $folder in bench | fuzz | tests | resources | packaging) continue ;; esac
    [ -n "${allowed[$folder]:-}" ] || complain "docs/architecture.md has no row for $folder/"
done < <(ls -d */CMakeLists.txt | cut -d/ -f1)

printf '%d links, %d complaints\n' $count $failures
[ $count -gt 20 ] && [ $failures -eq 0 ]
