#!/bin/sh
# Plays the same seeded self-play games with two builds of quorvanis-cli and
# compares every move, score, main line and node count: a speed change must
# leave them all as they were. Each shipped variant plays a game at a fixed
# depth, without the book.
#   scripts/compare_search.sh OLD_CLI NEW_CLI [DEPTH] [MOVES]
set -eu
old=$1 new=$2 depth=${3:-6} moves=${4:-80}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$new" variants | sed -n 's/^  \(.*\): SearchFlavour .*/\1/p' >"$work/variants"
differ=0 count=0
while IFS= read -r variant; do
  count=$((count + 1))
  for cli in old new; do
    eval bin=\$$cli
    "$bin" --variant "$variant" --seed 7 play --depth "$depth" --max-moves "$moves" --no-book --stats 2>&1 |
      sed 's/  time [^ ]* s  [0-9]* nodes\/s//; s/^stats total  nodes \([0-9]*\).*/total nodes \1/' >"$work/$cli.txt" || true
  done
  if ! cmp -s "$work/old.txt" "$work/new.txt"; then
    differ=$((differ + 1))
    echo "differs: $variant"
    diff "$work/old.txt" "$work/new.txt" | head -6
  fi
done <"$work/variants"
echo "$count variants, $differ differ"
[ "$differ" -eq 0 ]
