#!/usr/bin/env bash
# Compares what is installed with the list of files in the RPM specification: rpmbuild refuses a package that lacks
# one of them or lists one that is not there.
# usage: check_rpm_files.sh SOURCE_FOLDER INSTALLED_FOLDER
set -u
specification=$1/packaging/rpm/pinorama.spec
cd "$2" || exit 1

failures=0
complain() {
    echo "$*"
    failures=$((failures + 1))
}
mapfile -t patterns < <(sed -n '/^%files/,$s/^%{_/{_/p' "$specification" |
    sed 's,^{_bindir},usr/bin,; s,^{_datadir},usr/share,; s,^{_docdir},usr/share/doc,; s,^{_libexecdir},usr/libexec,
        s,^{_mandir},usr/share/man,; s,^{_metainfodir},usr/share/metainfo,; s,/$,/*,')

# matches NAME PATTERN: whether the pattern, in which * also stands for slashes, describes the file.
matches() {
    # shellcheck disable=SC2053
    [[ $1 == $2 ]]
}
mapfile -t files < <(find . -type f -printf '%P\n' | sort)
for file in "${files[@]}"; do
    for pattern in "${patterns[@]}"; do matches "$file" "$pattern" && continue 2; done
    complain "the specification does not list $file"
done
for pattern in "${patterns[@]}"; do
    for file in "${files[@]}"; do matches "$file" "$pattern" && continue 2; done
    complain "the specification lists $pattern, which is not installed"
done
printf '%d files, %d patterns, %d complaints\n' ${#files[@]} ${#patterns[@]} $failures
[ ${#files[@]} -gt 30 ] && [ $failures -eq 0 ]
