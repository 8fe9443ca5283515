#!/usr/bin/env bash
# Proves that scripts/release detects every disagreement that it should detect: in a copy of the
# files that name the version, one of them is changed at a time.
# usage: check_release.sh FOLDER
set -euo pipefail
tree=$1

copy=$(mktemp -d)
trap 'rm -rf "$copy"' EXIT
metainfo=packaging/org.pinorama.Pinorama.metainfo.xml.in
(cd "$tree" && cp --parents CMakeLists.txt CHANGELOG.md README.md debian/changelog $metainfo \
    packaging/rpm/pinorama.spec packaging/arch/PKGBUILD scripts/release "$copy")
cd "$copy"
echo /build/ >.gitignore
export GIT_CONFIG_GLOBAL=/dev/null GIT_CONFIG_SYSTEM=/dev/null
record() {
    git add -A
    git -c user.name=Tests -c user.email=tests@pinorama.example commit -q --allow-empty -m "$1"
}
git init -q
# Pretends that it is the day of the release, whatever state the tree is in.
day=$(date -u -d "$(sed -n '1,/^ -- /s/^ -- .*>  //p' debian/changelog)" +%F)
sed -i "0,/^## /s/^\(## [^ ]*\) .*/\1 ($day)/" CHANGELOG.md
record "As on the day of a release"

failures=0
count=0
# accepts NAME [--draft], complains NAME LABEL [--draft]: checks what scripts/release says about the copy as
# it is, and restores the copy.
accepts() {
    local name=$1 answer
    count=$((count + 1))
    answer=$(scripts/release "${@:2}" 2>&1) || {
        printf '%s: should be accepted:\n%s\n' "$name" "$answer"
        failures=$((failures + 1))
    }
    restore
}
complains() {
    local name=$1 complaint=$2 status=0 answer
    count=$((count + 1))
    answer=$(scripts/release "${@:3}" 2>&1) || status=$?
    if [ $status -ne 1 ] || [ "$(grep -c 'but it should be' <<<"$answer")" -ne 1 ] ||
        ! grep -q "^$complaint .*but it should be" <<<"$answer"; then
        printf '%s: status %d, should be 1 with one message, for "%s":\n%s\n' \
            "$name" $status "$complaint" "$answer"
        failures=$((failures + 1))
    fi
    restore
}
restore() {
    git checkout -q .
    git clean -qfd
}

accepts "all agree"
accepts "all agree, draft" --draft

sed -i '1s/([^)]*)/(9.8.7-1)/' debian/changelog
complains "another version in the Debian changelog" debian/changelog --draft

sed -i 's/^Version: .*/Version: 9.8.7/' packaging/rpm/pinorama.spec
complains "another version in the RPM specification" packaging/rpm/pinorama.spec --draft

sed -i 's/^pkgver=.*/pkgver=9.8.7/' packaging/arch/PKGBUILD
complains "another version in the PKGBUILD" packaging/arch/PKGBUILD --draft

sed -i 's/pinorama-[0-9.]*[.]tar/pinorama-9.8.7.tar/' README.md
complains "another archive in README.md" "README.md, archive" --draft

sed -i '0,/^## /s/^## [^ ]*/## 9.8.7/' CHANGELOG.md
complains "another version in CHANGELOG.md" CHANGELOG.md --draft

sed -i '0,/<release /s/@PROJECT_VERSION@/9.8.7/' $metainfo
complains "another version in the metainfo" "metainfo, first release" --draft

version=$(sed -n 's/^ *VERSION \([0-9.]*\)$/\1/p' CMakeLists.txt)
sed -i "s/^ *<releases>/&<release version=\"@PROJECT_VERSION@\" date=\"$day\"\/>\n/; \
    s/^\( *<release version=\"\)@PROJECT_VERSION@/\1$version/" $metainfo
complains "this version twice in the metainfo" "metainfo, earlier releases" --draft

sed -i '0,/<release /s/date="[^"]*"/date="1999-12-31"/' $metainfo
complains "another date in the metainfo" "metainfo, date" --draft

sed -i '0,/^## /s/^\(## [^ ]*\) .*/\1 (not released yet)/' CHANGELOG.md
accepts "a draft without a date" --draft
sed -i '0,/^## /s/^\(## [^ ]*\) .*/\1 (not released yet)/' CHANGELOG.md
record "no date yet"
complains "a release without a date" "CHANGELOG.md, date"
git reset -q --hard HEAD~1

sed -i '1s/.*/# Another heading/' CHANGELOG.md
complains "a change that is not committed" "uncommitted changes"

touch stray
complains "a file that is not committed" "uncommitted changes"

command=$(scripts/release | sed -n 's/^ *\(git archive .*\)/\1/p')
git tag "v$version"
mkdir build
bash -euc "$command" || command="fails: $command"
if [ -n "$(git status --porcelain)" ] || ! tar -tzf "build/pinorama-$version.tar.gz" "pinorama-$version/README.md" >/dev/null; then
    echo "Packing the archive should leave the tree as it is: $command"
    failures=$((failures + 1))
fi
complains "a tag that exists" "existing tags of this version"
git tag -d "v$version" >/dev/null

sed -i 's/^\( *VERSION \)[0-9.]*$/\19.8/' CMakeLists.txt
scripts/release --draft >/dev/null 2>&1 && {
    echo "A version of two numbers should not be accepted."
    failures=$((failures + 1))
}

printf '%d cases, %d failures\n' $count $failures
[ $failures -eq 0 ]
