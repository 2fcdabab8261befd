#!/usr/bin/env bash
# Refreshes the translation sources from the code. The program's own texts go to
# Halcyra2_<code>.ts, the widget library's to libs_<code>.ts; translated texts are kept.
# Translate the new entries (Qt Linguist, or by hand), then build: the .qm files are
# made at build time.
set -euo pipefail
cd "$(dirname "$0")/.."
LUPDATE=$(command -v lupdate-qt5 || command -v lupdate || echo /usr/lib/qt5/bin/lupdate)
program=()
for dir in app data view indicators browser; do
    [ -d "$dir" ] && program+=("$dir")
done
for code in de ru; do
    "$LUPDATE" -silent -locations none -no-obsolete "${program[@]}" \
        -ts "resources/translations/Halcyra2_$code.ts"
    "$LUPDATE" -silent -locations none -no-obsolete widgets core -ts "resources/translations/libs_$code.ts"
done
