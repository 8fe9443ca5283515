#!/usr/bin/env bash
# Compares the libraries that Debian's package is built with to those that the RPM specification, the PKGBUILD and
# README.md name, and the licences in REUSE.toml to those that both name and hand out: nobody builds those packages
# here, so nothing else would tell that one is missing.
# usage: check_dependencies.sh SOURCE_FOLDER
set -u
cd "$1" || exit 1

# Names in Debian, Fedora, Arch and README.md; - for what such a document need not say.
names='libgeographiclib-dev  GeographicLib-devel    geographiclib  GeographicLib
libicu-dev                   pkgconfig(icu-i18n)    icu            ICU
libjpeg62-turbo-dev          pkgconfig(libjpeg)     libjpeg-turbo  libjpeg-turbo
libpng-dev                   pkgconfig(libpng)      libpng         libpng
libraw-dev                   pkgconfig(libraw)      libraw         LibRaw
libseccomp-dev               pkgconfig(libseccomp)  libseccomp     -
libsqlite3-dev               pkgconfig(sqlite3)     sqlite         SQLite
nlohmann-json3-dev           json-devel             nlohmann-json  -
qt6-base-dev                 qt6-qtbase-devel       qt6-base       Qt
qt6-tools-dev                qt6-qttools-devel      qt6-tools      -'

failures=0
complain() {
    echo "$*"
    failures=$((failures + 1))
}
mapfile -t needed < <(sed -n '/^Build-Depends:/,/^[^ ]/s/^ \([^ ,]*-dev\)\([ ,].*\)\?$/\1/p' debian/control)
specification=$(sed -n 's/^BuildRequires: *\([^ ]*\).*/\1/p' packaging/rpm/pinorama.spec)
script=$(bash -c '. packaging/arch/PKGBUILD && printf "%s\n" "${depends[@]}" "${makedepends[@]}"')
promise=$(tr '\n' ' ' <README.md | sed -n 's/.*the libraries that it needs are part of Debian: \([^.]*\)\..*/\1/p')
for package in "${needed[@]}"; do
    read -r _ fedora arch readme < <(grep "^$package " <<<"$names") || {
        complain "$0 does not know $package"
        continue
    }
    grep -qxF -- "$fedora" <<<"$specification" || complain "the RPM specification lacks $fedora"
    grep -qxF -- "$arch" <<<"$script" || complain "the PKGBUILD lacks $arch"
    [ "$readme" = - ] || grep -qwF -- "$readme" <<<"$promise" || complain "README.md does not name $readme"
done

mapfile -t licences < <(sed -n 's/^SPDX-License-Identifier = "\(.*\)"$/\1/p' REUSE.toml | sed 's/ AND /\n/g' | sort -u)
fedora=$(sed -n 's/^License: *//p' packaging/rpm/pinorama.spec | sed 's/ AND /\n/g')
arch=$(bash -c '. packaging/arch/PKGBUILD && printf "%s\n" "${license[@]}"')
for licence in "${licences[@]}"; do
    grep -qxF -- "$licence" <<<"$fedora" || complain "the RPM specification does not name the licence $licence"
    grep -qxF -- "$licence" <<<"$arch" || complain "the PKGBUILD does not name the licence $licence"
    for file in packaging/rpm/pinorama.spec packaging/arch/PKGBUILD packaging/flatpak/org.pinorama.Pinorama.yml; do
        [ "$licence" = GPL-3.0-or-later ] || grep -qF -- "LICENSES/$licence.txt" $file ||
            complain "$file does not hand out LICENSES/$licence.txt"
    done
done
printf '%d packages, %d licences, %d complaints\n' ${#needed[@]} ${#licences[@]} $failures
[ ${#needed[@]} -ge 10 ] && [ ${#licences[@]} -ge 4 ] && [ $failures -eq 0 ]
