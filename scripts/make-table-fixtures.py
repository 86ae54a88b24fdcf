#!/usr/bin/python3
"""Makes the test tables with tools we did not write: python3-dbf for dBASE, xbase64's dbfutil1
for dBASE indexes, python3-xlwt for Excel.

Usage: make-table-fixtures.py OUTPUT-FOLDER
"""
import datetime
import os
import subprocess
import sys

import dbf
import xlwt

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

# dBASE III with two NDX indexes that xbase64's dbfutil1 (libxbase64-bin) writes: ITEMS.DBF,
# itemname.ndx on a text field and itemstock.ndx on a number field, both with repeated keys.
# Twenty rows keep each index on one page: on 64-bit systems dbfutil1 splits pages wrongly.
ITEM_NAMES = ("Anchor", "bolt", "Cable", "Damper", "Elbow", "Flange", "Gasket", "Hinge",
              "Insert", "Joint", "Knob", "Lever", "Mount", "Nozzle", "O-ring", "Pulley",
              "Quill", "Rivet", "Spring", "Tube", "Union", "Valve", "Washer")
for leftover in ("ITEMS.DBF", "itemname.ndx", "itemstock.ndx"):
    try:
        os.remove(os.path.join(out, leftover))
    except FileNotFoundError:
        pass
table = dbf.Table(os.path.join(out, "ITEMS.DBF"), "CODE C(6); ITEM C(12); STOCK N(5,0)",
                  dbf_type="db3")
table.open(dbf.READ_WRITE)
for i in range(20):
    table.append(("C%04d" % i, ITEM_NAMES[(i * 7) % 9], (i * 7) % 11 - 5))
table.close()
for ndx, key in (("itemname.ndx", "ITEM"), ("itemstock.ndx", "STOCK")):
    # The menus: open the table, then create a non-unique index on the key, then leave.
    answers = "1\n1\nITEMS.DBF\n99\n4\n2\n%s\nN\n%s\n99\n99\n" % (ndx, key)
    made = subprocess.run(["dbfutil1"], input=answers, text=True, capture_output=True,
                          cwd=out, timeout=60)
    if "loaded successfully" not in made.stdout:
        sys.exit("dbfutil1 did not make %s:\n%s" % (ndx, made.stdout[-2000:]))

# An Excel workbook of two sheets, the first row the field names.
book = xlwt.Workbook()
prices = book.add_sheet("Prices")
for col, name in enumerate(("Item", "Price", "Stock")):
    prices.write(0, col, name)
for row, (item, price, stock) in enumerate((("Widget", 2.5, 12), ("Gadget", 19.99, 3)), start=1):
    prices.write(row, 0, item)
    prices.write(row, 1, price)
    prices.write(row, 2, stock)
people = book.add_sheet("People")
people.write(0, 0, "Name")
people.write(1, 0, "Zoë")
book.save(os.path.join(out, "BOOK.XLS"))


def make_merged_workbook(folder):
    """MERGED.XLS: one sheet with a merged block and empty cells between values."""
    merged = xlwt.Workbook()
    grid = merged.add_sheet("Grid")
    for col, name in enumerate(("Key", "Left", "Right", "Note")):
        grid.write(0, col, name)
    grid.write_merge(1, 2, 1, 2, "Joined")  # rows 1-2, columns 1-2
    grid.write(1, 0, 1)
    grid.write(2, 0, 2)
    grid.write(3, 0, 3)
    grid.write(3, 3, "last")
    grid.write(5, 1, 7.5)  # row 4 stays empty
    merged.save(os.path.join(folder, "MERGED.XLS"))


make_merged_workbook(out)


def make_window_tables(folder):
    """MANY.DBF: 5,000 records to page through; EMPTY.DBF: a table without records;
    WIDE251.XLS and WIDE252.XLS: one sheet of 251
    and of 252 columns, one more than a grid of the shared field lists can show."""
    many_path = os.path.join(folder, "MANY.DBF")
    if os.path.exists(many_path):
        os.remove(many_path)
    many = dbf.Table(many_path, "KEY C(7); AMOUNT N(8,0)", dbf_type="db3")
    many.open(dbf.READ_WRITE)
    for i in range(5000):
        many.append(("R%06d" % i, (i * 7919) % 100003))
    many.close()
    empty_path = os.path.join(folder, "EMPTY.DBF")
    if os.path.exists(empty_path):
        os.remove(empty_path)
    dbf.Table(empty_path, "NAME C(10)", dbf_type="db3").open(dbf.READ_WRITE).close()
    for columns in (251, 252):
        wide = xlwt.Workbook()
        sheet = wide.add_sheet("Wide")
        for col in range(columns):
            sheet.write(0, col, "F%d" % col)
            sheet.write(1, col, col)
        wide.save(os.path.join(folder, "WIDE%d.XLS" % columns))


make_window_tables(out)
