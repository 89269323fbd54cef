#!/bin/sh
# Checks the shared-mime-info package the way desktops read it: update-mime-database builds a
# database from it alone, without complaint, and maps *.cv4 to our type, a kind of SQLite file.
# Usage: valider-mime.sh PAQUET.xml
set -eu
paquet=$1
type=application/x-corvane-document

if command -v xmllint >/dev/null 2>&1; then
    xmllint --noout "$paquet"
fi

base=$(mktemp -d)
trap 'rm -rf "$base"' EXIT
mkdir -p "$base/mime/packages"
cp "$paquet" "$base/mime/packages/"
# update-mime-database reports a faulty package on stderr but still exits 0.
XDG_DATA_HOME=$base XDG_DATA_DIRS=$base update-mime-database "$base/mime" 2>"$base/erreurs"
if [ -s "$base/erreurs" ]; then
    cat "$base/erreurs" >&2
    exit 1
fi

echec=0
verifier() {
    if ! grep -qxF "$2" "$base/mime/$1"; then
        echo "valider-mime: « $2 » manque dans $1" >&2
        echec=1
    fi
}
verifier globs2 "50:$type:*.cv4"
verifier subclasses "$type application/vnd.sqlite3"
verifier "$type.xml" "  <comment xml:lang=\"fr\">Document Corvane</comment>"
exit $echec
