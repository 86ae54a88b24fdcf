#!/usr/bin/python3
"""Makes the test tables with tools we did not write: python3-dbf for dBASE.

Usage: make-table-fixtures.py OUTPUT-FOLDER
"""
import datetime
import os
import sys

import dbf

out = sys.argv[1]
os.makedirs(out, exist_ok=True)

# dBASE III with a memo: SALES.DBF and its SALES.DBT.
path = os.path.join(out, "SALES.DBF")
for leftover in ("SALES.DBF", "SALES.DBT"):
    try:
        os.remove(os.path.join(out, leftover))
    except FileNotFoundError:
        pass
table = dbf.Table(path, "NAME C(20); QTY N(5,0); PRICE N(8,2); SOLD D; PAID L; NOTES M",
                  dbf_type="db3")
table.open(dbf.READ_WRITE)
table.append(("Widget", 12, 2.5, datetime.date(2024, 3, 1), True, "First order of the year"))
table.append(("Gadget", 3, 19.99, datetime.date(2024, 3, 2), False, ""))
table.append(("Sprocket", 250, 0.15, datetime.date(2024, 3, 5), True, "Bulk\r\nsecond line"))
table.close()
