"""Writes a dBASE III table of N records with python3-dbf: a 7-letter text key, a number, a
date and a logical. Prints the time the writing took.

Run: /usr/bin/python3 make_dbf.py FILE.DBF N
"""

import datetime
import sys
import time

import dbf


def main():
    path, count = sys.argv[1], int(sys.argv[2])
    start = time.perf_counter()
    table = dbf.Table(path, "KEY C(7); AMOUNT N(10,0); WHEN D; FLAG L", dbf_type="db3")
    table.open(dbf.READ_WRITE)
    first_day = datetime.date(2000, 1, 1)
    for i in range(count):
        table.append(
            ("K%06d" % i, i, first_day + datetime.timedelta(days=i % 9000), i % 2 == 0)
        )
    table.close()
    print("%.1f" % (time.perf_counter() - start))


if __name__ == "__main__":
    main()
