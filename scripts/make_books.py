#!/usr/bin/env python3
"""Writes the opening books data/books/*.bok from the readable lists in
scripts/books/*.txt.

A list holds one opening line a row, moves separated by blanks, in the
variant's own notation: numbers (11-15, 15x24) or algebraic squares (c3-d4,
d4:f6). A name follows "=": it belongs to the line as far as it is written.
A move with "?" in front is known to the book but never proposed (a losing
try, say). "#" starts a comment. The first rows name the variant:

    variant: Russian Checkers
    c3-d4 f6-g5 = City Opening

The rules of the section are taken from data/variants/<variant>.ini, so a
book always matches the shipped variant it was written for.

    python3 scripts/make_books.py            # all lists
    python3 scripts/make_books.py --check    # fail when a book is out of date
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SOURCES = os.path.join(ROOT, "scripts", "books")
BOOKS = os.path.join(ROOT, "data", "books")
VARIANTS = os.path.join(ROOT, "data", "variants")
HEADER = "QUORVANIS Version=0.89"
SKIPPED_KEYS = ("Setup=", "Help=", "HelpLink=", "QuickHelpLink=")


def standard_setup():
    """Twelve men a side, as the program keeps the start position of every
    board colour: 64 digits, a1..h1, a2..h8."""
    return "1010101001010101101010100000000000000000020202022020202002020202"


def read_variant(name):
    """The rule lines of a variant file and its PiecesOnBlack and BlackStarts."""
    with open(os.path.join(VARIANTS, name + ".ini"), encoding="latin-1") as f:
        lines = [line.rstrip("\r\n") for line in f][1:]
    rules, setup, values = [], "normal", {}
    for line in lines:
        if line == "END":
            break
        if line.startswith("Setup="):
            setup = line[len("Setup="):]
        if "=" not in line or line.startswith(SKIPPED_KEYS):
            continue
        rules.append(line)
        key, value = line.split("=", 1)
        values[key] = value
    pob = int(re.match(r"\s*(-?\d*)", values.get("PiecesOnBlack", "1")).group(1) or 0)
    black_starts = int(re.match(r"\s*(-?\d*)", values.get("BlackStarts", "1")).group(1) or 0)
    if setup == "normal":
        setup = standard_setup()
    return rules, setup, pob, black_starts


def square_number(text, pob):
    """A square in numbers 1..32, from numbers or algebraic text."""
    if text.isdigit():
        return int(text)
    file, rank = ord(text[0].lower()) - ord("a") + 1, int(text[1])
    if pob >= 2:
        raise ValueError("numbers need a board of 32 squares")
    return (8 - rank) * 4 + (file + 1) // 2


def book_move(text, pob):
    if pob >= 2:
        squares = re.split(r"[-x:]", text.lower())
        return squares[0] + squares[-1]
    squares = [square_number(s, pob) for s in re.split(r"[-x:]", text)]
    return "%02d%02d" % (squares[0], squares[-1])


def read_list(path):
    variant, lines = None, []
    with open(path, encoding="utf-8") as f:
        for number, row in enumerate(f, 1):
            row = row.split("#", 1)[0].strip()
            if not row:
                continue
            if row.startswith("variant:"):
                variant = row.split(":", 1)[1].strip()
                continue
            moves, _, name = row.partition("=")
            lines.append((moves.split(), name.strip(), "%s:%d" % (os.path.basename(path), number)))
    return variant, lines


def build_book(variant, lines):
    rules, setup, pob, black_starts = read_variant(variant)
    first, second = ("b", "w") if black_starts == 1 else ("w", "b")
    tree = {}  # move -> (mark, subtree), in the order first written
    names = []
    for moves, name, where in lines:
        node, key = tree, []
        for ply, text in enumerate(moves):
            never = text.startswith("?")
            move = book_move(text.lstrip("?"), pob)
            mark = "." if never else (first if ply % 2 == 0 else second)
            if move not in node:
                node[move] = [mark, {}]
            elif never:
                node[move][0] = "."
            key.append(move)
            node = node[move][1]
        if name:
            names.append((len(key), " ".join(key), name))

    full_lines = []

    def walk(node, prefix):
        if not node:
            full_lines.append(prefix)
        for move, (mark, children) in node.items():
            walk(children, prefix + move + mark)

    walk(tree, "")
    out = [HEADER, "Variant=" + variant, "Setup=" + setup] + rules + ["start"]
    previous = ""
    for line in full_lines:
        shared = 0
        while shared + 5 <= min(len(line), len(previous)) and line[shared:shared + 5] == previous[shared:shared + 5]:
            shared += 5
        out.append(" " * shared + line[shared:])
        previous = line
    # Names from general to specific: the last one that fits the game wins.
    out.append("names")
    for _, key, name in sorted(names, key=lambda n: n[0]):
        out.append("%s'%s'" % (key, name))
    out.append("end")
    return "\n".join(out) + "\n"


def main():
    check = "--check" in sys.argv[1:]
    stale = []
    os.makedirs(BOOKS, exist_ok=True)
    for file in sorted(os.listdir(SOURCES)):
        if not file.endswith(".txt"):
            continue
        variant, lines = read_list(os.path.join(SOURCES, file))
        text = build_book(variant, lines)
        target = os.path.join(BOOKS, variant + ".bok")
        old = open(target, newline="").read() if os.path.exists(target) else None
        if old == text:
            continue
        if check:
            stale.append(target)
            continue
        with open(target + ".tmp", "w", newline="") as f:
            f.write(text)
        os.replace(target + ".tmp", target)
        print("wrote", target)
    if stale:
        print("out of date:", *stale, sep="\n  ")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
