#!/usr/bin/env bash
# Installs a build into a temporary root, as a package would, and checks that
# the installed programs work from there alone: the CLI on a few commands, the
# window started offscreen, the desktop files valid, the manual pages shown.
# Usage: install_test.sh BUILD_DIR SOURCE_DIR
set -euo pipefail
build="$1"
source="$2"
root="$(mktemp -d)"
home="$(mktemp -d)"
trap 'rm -rf "$root" "$home"' EXIT

DESTDIR="$root" cmake --install "$build" --prefix /usr >/dev/null
usr="$root/usr"
fail() { echo "install test: $*" >&2; exit 1; }

for f in bin/quorvanis-cli share/quorvanis/variants/"American Checkers.ini" \
         share/applications/io.github.quorvanis.Quorvanis.desktop \
         share/icons/hicolor/scalable/apps/io.github.quorvanis.Quorvanis.svg \
         share/metainfo/io.github.quorvanis.Quorvanis.metainfo.xml \
         share/mime/packages/io.github.quorvanis.Quorvanis.xml \
         share/man/man6/quorvanis.6.gz share/man/man6/quorvanis-cli.6.gz; do
  [ -e "$usr/$f" ] || fail "missing $f"
done

# The installed programs must not lean on the source tree's data (debug
# information may still name the folders a build was made in).
for f in "$usr"/bin/*; do
  if grep -q -F "$source/data" "$f"; then fail "$f refers to the source tree's data"; fi
done

export HOME="$home" XDG_DATA_HOME="$home/data"
cli="$usr/bin/quorvanis-cli"
"$cli" --version | grep -q "^quorvanis-cli [0-9]" || fail "--version"
"$cli" --help | grep -q "^usage:" || fail "--help"
"$cli" variants | grep -q "Russian Checkers" || fail "variants does not list the installed variants"
"$cli" --variant "Russian Checkers" moves | grep -q . || fail "moves of an installed variant"
"$cli" perft 4 2>/dev/null | grep -q "^perft 4: 1469$" || fail "perft 4 from the American start"

man -l "$usr/share/man/man6/quorvanis-cli.6.gz" 2>/dev/null | grep -q "quorvanis-cli" || fail "manual page of quorvanis-cli"
if command -v appstreamcli >/dev/null; then
  appstreamcli validate --no-net "$usr/share/metainfo/io.github.quorvanis.Quorvanis.metainfo.xml" >/dev/null || fail "metainfo"
fi
if command -v desktop-file-validate >/dev/null; then
  desktop-file-validate "$usr/share/applications/io.github.quorvanis.Quorvanis.desktop" || fail "desktop entry"
fi

if [ -x "$usr/bin/quorvanis" ]; then
  # The window starts and keeps running until it is stopped.
  before="$(find "$usr" | sort)"
  status=0
  QT_QPA_PLATFORM=offscreen timeout 5 "$usr/bin/quorvanis" >/dev/null 2>&1 || status=$?
  [ "$status" -eq 124 ] || fail "the installed window ended with status $status"
  # and opens a saved game named on its command line, as a double-click does.
  "$cli" play --depth 1 --max-moves 4 --save "$home/game.qvn" >/dev/null || fail "play --save"
  status=0
  QT_QPA_PLATFORM=offscreen timeout 5 "$usr/bin/quorvanis" "$home/game.qvn" >/dev/null 2>&1 || status=$?
  [ "$status" -eq 124 ] || fail "the installed window with a game file ended with status $status"
  # It wrote nothing into the installed tree.
  [ "$before" = "$(find "$usr" | sort)" ] || fail "the window wrote into the installed tree"
fi
echo "install test: the installed tree works"
