#!/usr/bin/env python3
"""Turns a screen of a terminal, as `tmux capture-pane -e -p` gives it, into an SVG picture.

Usage: screen_to_svg.py COLUMNS ROWS <screen >picture.svg
"""

import html
import re
import sys
import unicodedata

CELL_WIDTH, CELL_HEIGHT, MARGIN = 9, 19, 12
FOREGROUND, BACKGROUND = "#d8dee9", "#1f2430"
COLORS = ["#1f2430", "#e06c75", "#8fbf6f", "#e5c07b", "#5f87c7", "#b48ead", "#7fc7d9", "#e5e9f0"]


class Look:
    """How the next characters are shown."""

    def __init__(self):
        self.reset()

    def reset(self):
        self.foreground, self.background = FOREGROUND, BACKGROUND
        self.bold = self.dim = self.underlined = self.reverse = False

    def apply(self, codes):
        for code in codes or [0]:
            if code == 0:
                self.reset()
            elif code == 1:
                self.bold = True
            elif code == 2:
                self.dim = True
            elif code == 4:
                self.underlined = True
            elif code == 7:
                self.reverse = True
            elif 30 <= code <= 37:
                self.foreground = COLORS[code - 30]
            elif code == 39:
                self.foreground = FOREGROUND
            elif 40 <= code <= 47:
                self.background = COLORS[code - 40]
            elif code == 49:
                self.background = BACKGROUND

    def key(self):
        foreground, background = self.foreground, self.background
        if self.reverse:
            foreground, background = background, foreground
        return foreground, background, self.bold, self.dim, self.underlined


def columns_of(character):
    if unicodedata.combining(character):
        return 0
    return 2 if unicodedata.east_asian_width(character) in "WF" else 1


def runs(line, look):
    """Yields (look, text) for stretches of characters that look the same. `look` is how the line
    before left it."""
    for part in re.split(r"(\x1b\[[0-9;]*m)", line):
        if part.startswith("\x1b["):
            look.apply([int(code or 0) for code in part[2:-1].split(";")])
        elif part:
            yield look.key(), part


def main():
    columns, rows = int(sys.argv[1]), int(sys.argv[2])
    width, height = columns * CELL_WIDTH + 2 * MARGIN, rows * CELL_HEIGHT + 2 * MARGIN
    print(f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
          f'viewBox="0 0 {width} {height}">')
    print(f'<rect width="{width}" height="{height}" rx="8" fill="{BACKGROUND}"/>')
    print('<g font-family="DejaVu Sans Mono, Menlo, Consolas, monospace" font-size="15">')
    look = Look()
    for row, line in enumerate(sys.stdin.read().split("\n")[:rows]):
        column = 0
        for (foreground, background, bold, dim, underlined), text in runs(line, look):
            x, y = MARGIN + column * CELL_WIDTH, MARGIN + row * CELL_HEIGHT
            # Each character has its place, so that columns line up in any font.
            places = []
            for character in text:
                if columns_of(character) > 0:
                    places.append(MARGIN + column * CELL_WIDTH)
                column += columns_of(character)
            length = MARGIN + column * CELL_WIDTH - x
            if background != BACKGROUND:
                print(f'<rect x="{x}" y="{y}" width="{length}" height="{CELL_HEIGHT}" '
                      f'fill="{background}"/>')
            if underlined:
                print(f'<rect x="{x}" y="{y + CELL_HEIGHT - 3}" width="{length}" height="1" '
                      f'fill="{foreground}"/>')
            if text.strip():
                style = (' font-weight="bold"' if bold else "") + (' opacity="0.6"' if dim else "")
                print(f'<text x="{" ".join(map(str, places))}" y="{y + 15}" '
                      f'xml:space="preserve" fill="{foreground}"{style}>{html.escape(text)}</text>')
    print("</g>\n</svg>")


if __name__ == "__main__":
    main()
