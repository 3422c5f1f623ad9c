#!/usr/bin/env python3
"""Makes the sample download: python3 make_catalog.py > catalog.txt

Brands and catalog numbers are made up. A fixed seed makes the same file every time.
"""

import itertools
import random
import sys

RECORDS = 6000
HEADER = "FORMAT=[INDEX(10)][CATALOG(60)][BRAND(50)]"

# For each brand its series of numbers: a text stands in every number of the series, of anything
# else each number has one, in all combinations.
# Brands share beginnings, as real ones do, so that a few typed characters leave several of them.
SERIES = {
    "BÄRENTAL": [("BT", range(100, 180), "-", ("16", "25", "40", "63"), ("", "/B", "/C"))],
    "CASTANÇO": [("CA.", range(10, 60), ".", range(100, 108)), ("CAX", range(1, 40), "-R")],
    "DOLVENNA": [("D-", range(2000, 2120, 3), ("", "/M", "/MX", "/Z9")), ("DV", range(70, 99), "Q")],
    "DRUVENTIS": [("DR", range(11, 60), "-", list("ABCDEF"))],
    "ÉLANOR": [("EL", range(400, 470), "/", ("BK", "WH", "GR", "RD", "NT"))],
    "FENDRASK": [("F", range(1, 10), "K", range(10, 60)), ("FX-", range(300, 340), ".5")],
    "GAVELTRON": [("GT", range(5000, 5400, 2), ("", "-P", "-PS"))],
    "HALBRUNDT": [("3HB", range(610, 690), "-", ("0A", "1A", "2B", "8C"))],
    "ISKVELD": [("IS", range(20, 60), "/", range(1, 9)), ("ISK-", list("ABCDEFG"), range(10, 30))],
    "JURNOVAL": [("JN", ("04", "06", "10", "16"), "X", range(50, 110))],
    "KRANDIMO": [("K", range(1000, 1200, 2), ".", ("1", "2", "5")), ("KR-", range(10, 90), "L")],
    "LORQUIST & SØN": [("LQ", range(1, 60), "-", ("230", "400", "690"))],
    "MOLTRAVE": [("M", range(10, 30), "-", range(5, 50, 3)), ("MTR", range(800, 880), "/2")],
    "NYMPHRON": [("3N", range(100, 220), ("AC", "DC", "UC"))],
    "ØRNVAKT": [("OV.", range(61, 99), ".", ("010", "016", "020", "032", "050"))],
    "PLIMVOR": [("PL", ("A", "B", "BX"), range(1, 99), "-S"), ("P-", range(9000, 9090))],
    "QUENDARO": [("3QD", range(40, 80), "-", range(11, 17))],
    "SKORVANE": [("S", range(201, 240), "C", ("6", "10", "16", "20", "32", "63"))],
    "TRASKETT": [("TK/", range(7, 60), "/", list("NPRST")), ("T", range(330, 400), "-90")],
    "WEXLOMAR": [("812-WX", range(1, 80), "-", ("D4", "D8", "E4")), ("8640-", list("CDEF"), range(100, 160))],
    "YTTRALUX": [("265-Y", range(9, 100), "V", ("01", "10", "11"))],
}


def numbers(series):
    parts = [[part] if isinstance(part, str) else part for part in series]
    return ("".join(map(str, choice)) for choice in itertools.product(*parts))


def main():
    rng = random.Random(1252)
    catalog = [(number, brand) for brand, all_series in SERIES.items()
               for series in all_series for number in numbers(series)]
    catalog = sorted(rng.sample(catalog, RECORDS))
    assert len({number.upper() for number, _ in catalog}) == RECORDS, "a number is there twice"
    records = [f"{index:10}{number:60}{brand:50}" for index, (number, brand) in enumerate(catalog, 1)]
    rng.shuffle(records)
    text = "".join(line + "\r\n" for line in [HEADER, *records])
    sys.stdout.buffer.write(text.encode("cp1252"))


if __name__ == "__main__":
    main()
