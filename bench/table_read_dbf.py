"""Reads a dBASE table with python3-dbf as a viewer would: opening it and reading its first 40
records, opening it and reading its last record, and opening it and reading every record.
Each record is read into a list of its values. Prints the milliseconds of each on one line:
"first40=... last=... all=...".

Run: /usr/bin/python3 table_read_dbf.py FILE.DBF
"""

import sys
import time

import dbf


def timed(path, read):
    start = time.perf_counter()
    table = dbf.Table(path)
    table.open(dbf.READ_ONLY)
    read(table)
    table.close()
    return (time.perf_counter() - start) * 1000


def main():
    path = sys.argv[1]
    first40 = timed(path, lambda t: [list(t[i]) for i in range(min(40, len(t)))])
    last = timed(path, lambda t: list(t[len(t) - 1]))
    every = timed(path, lambda t: sum(1 for r in t if list(r)))
    print("first40=%.2f last=%.2f all=%.2f" % (first40, last, every))


if __name__ == "__main__":
    main()
