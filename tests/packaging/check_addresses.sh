#!/usr/bin/env bash
# Fills in the desktop entry and the metainfo with and without addresses, and checks that they are valid and that
# only addresses that are there are shown.
# usage: check_addresses.sh SOURCE_FOLDER
set -u
source=$1
folder=$(mktemp -d) || exit 1
trap 'rm -rf "$folder"' EXIT
failures=0
complain() {
    echo "$*"
    failures=$((failures + 1))
}

cat >"$folder/fill-in.cmake" <<EOT
cmake_minimum_required(VERSION 3.25)
include("$source/cmake/PinoramaAddresses.cmake")
set(PROJECT_VERSION 1.2.3)
foreach(file IN ITEMS desktop metainfo.xml)
    set(file org.pinorama.Pinorama.\${file})
    pinorama_fill_in("$source/packaging/\${file}.in" "$folder/\${file}")
endforeach()
EOT
entry=$folder/org.pinorama.Pinorama.desktop
metainfo=$folder/org.pinorama.Pinorama.metainfo.xml

# fill_in NAME=ADDRESS...: sets these addresses and no other, fills in both files, and validates them. Newer
# validators want every program to have a home page.
fill_in() {
    local definitions=() setting complaints
    for setting in HOME= DONATION= BUG= CONTACT= "$@"; do
        definitions+=("-DPINORAMA_${setting%%=*}_URL=${setting#*=}")
    done
    rm -f "$entry" "$metainfo"
    cmake "${definitions[@]}" -P "$folder/fill-in.cmake" || complain "$*: cannot be filled in"
    ! grep -n '\[if \|\[end\]\|@[A-Z_]*@' "$entry" "$metainfo" || complain "$*: a mark is left"
    if command -v desktop-file-validate >/dev/null; then
        desktop-file-validate "$entry" || complain "$*: the desktop entry is not valid"
    fi
    if command -v appstreamcli >/dev/null; then
        complaints=$(appstreamcli validate --no-net --pedantic "$metainfo" | grep '^[EW]:' | grep -v url-homepage-missing)
        [ -z "$complaints" ] || complain "$*: the metainfo is not valid: $complaints"
    fi
}
shows() { grep -qF -- "$2" "$1" || complain "${1##*/} does not show $2"; }
hides() { ! grep -qF -- "$2" "$1" || complain "${1##*/} shows $2"; }

for none in HOME= HOME=https://pinorama.example/ HOME=https://pinorama.example; do
    fill_in "$none"
    hides "$entry" Action
    hides "$metainfo" '<url'
    hides "$metainfo" '<screenshot'
    hides "$metainfo" pinorama.example
done

fill_in HOME=https://pinorama.test/
shows "$entry" 'Actions=home;'
shows "$entry" 'Exec=pinorama --action home'
hides "$entry" donate
shows "$metainfo" '<url type="homepage">https://pinorama.test/</url>'
hides "$metainfo" 'type="donation"'
[ "$(grep -c '<image' "$metainfo")" -eq 3 ] || complain "there are not three screenshots"
[ "$(grep -c '<caption>' "$metainfo")" -eq 3 ] || complain "a screenshot has no caption"
for texts in "$source"/resources/texts/texts_*.ts; do
    language=$(basename "$texts" .ts | sed 's/^texts_//; s/_/-/')
    [ "$(grep -c "<caption xml:lang=\"$language\">[^<]" "$metainfo")" -eq 3 ] ||
        complain "a caption is not translated into $language"
done
while read -r picture; do
    [ -e "$source/docs/pictures/$picture" ] || complain "there is no screenshot $picture"
done < <(sed -n 's,.*<image.*/screenshots/\([^<]*\)<.*,\1,p' "$metainfo")

fill_in DONATION=https://pinorama.test/give BUG=https://bugs.test/pinorama CONTACT=https://pinorama.test/write
shows "$entry" 'Actions=donate;'
shows "$entry" 'Name[de]=Spenden'
hides "$entry" 'action home'
shows "$metainfo" '<url type="donation">https://pinorama.test/give</url>'
shows "$metainfo" '<url type="bugtracker">https://bugs.test/pinorama</url>'
shows "$metainfo" '<url type="contact">https://pinorama.test/write</url>'
hides "$metainfo" '<screenshot'

# What stores ask for beyond the validators: short summaries.
while read -r summary; do
    [ ${#summary} -le 35 ] || complain "longer than 35 characters: $summary"
done < <(sed -n 's,.*<summary[^>]*>\([^<]*\)<.*,\1,p' "$metainfo")

printf '%d failures\n' $failures
[ $failures -eq 0 ]
