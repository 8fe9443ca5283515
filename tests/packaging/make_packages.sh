#!/usr/bin/env bash
# Makes the Debian packages of programs that are built already: debian/rules does everything but compile.
# usage: make_packages.sh SOURCE_FOLDER BUILD_FOLDER FOLDER
#   FOLDER   receives the packages; what it had before is removed
set -euo pipefail

source=$1
build=$2
folder=$3
rm -rf "$folder"
mkdir -p "$folder/source"
cd "$folder/source"
cp -r "$source/debian" "$source/CHANGELOG.md" .
# The programs were built without debugging information.
export PINORAMA_BUILT=$build DEB_BUILD_OPTIONS=noautodbgsym
unset DESTDIR MAKEFLAGS MAKELEVEL
debian/rules binary
