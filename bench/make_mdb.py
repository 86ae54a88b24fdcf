"""Makes an Access (Jet 4) file with a table of N rows from a Jet 4 file whose one user table
has a Long Integer column and a Text column (ID, Data): the file is copied and N rows
(ID 1..N, Data "K0000001" and on, stored as compressed text) are written on new data pages of
that table, whose page usage map is turned into one that points to a bitmap page of its own,
and whose row count is set. The rows the table had are left out of its map, so it holds
exactly the new rows. Indexes are not touched: they still list the rows the table had, so
the file is for reading the table in its stored order only.

No Debian package writes Access files (libmdb's writing cannot add a page), so this is our own
code and its pages follow the Jet 4 layout as libmdb reads it.

Run: /usr/bin/python3 make_mdb.py JET4.mdb OUT.mdb N
"""

import shutil
import struct
import sys
import time

PAGE = 4096
DATA_PAGE, TDEF_PAGE, USAGE_PAGE = 0x01, 0x02, 0x05
USER_TABLE = 0x4E


def rows_of(page):
    count = struct.unpack_from("<H", page, 12)[0]
    places, end = [], PAGE
    for i in range(count):
        start = struct.unpack_from("<H", page, 14 + 2 * i)[0] & 0x1FFF
        places.append((start, end))
        end = start
    return places


def find_table(data):
    """The data page of the user table with two columns, one of them of variable length,
    and its definition page."""
    for number in range(len(data) // PAGE):
        page = data[number * PAGE : (number + 1) * PAGE]
        if page[0] != DATA_PAGE:
            continue
        tdef = struct.unpack_from("<I", page, 4)[0]
        if tdef * PAGE >= len(data):
            continue
        t = data[tdef * PAGE : (tdef + 1) * PAGE]
        if t[0] != TDEF_PAGE or t[40] != USER_TABLE:
            continue
        var_cols, cols = struct.unpack_from("<HH", t, 43)
        if (cols, var_cols) == (2, 1):
            return number, tdef
    sys.exit("no table of a number and a text column in the file")


def row(number):
    text = b"\xff\xfe" + b"K%07d" % number  # compressed: single bytes after the mark
    end_of_data = 6 + len(text)
    # column count, ID, the text, then the variable columns' offsets from the end backwards,
    # their count, and the null mask (both columns present).
    return (
        struct.pack("<Hi", 2, number)
        + text
        + struct.pack("<HHH", end_of_data, 6, 1)
        + b"\x03"
    )


def data_page(tdef, rows):
    page = bytearray(PAGE)
    page[0], page[1] = DATA_PAGE, 0x01
    struct.pack_into("<I", page, 4, tdef)
    struct.pack_into("<H", page, 12, len(rows))
    end = PAGE
    for i, r in enumerate(rows):
        end -= len(r)
        page[end : end + len(r)] = r
        struct.pack_into("<H", page, 14 + 2 * i, end)
    struct.pack_into("<H", page, 2, end - (14 + 2 * len(rows)))
    return page


def main():
    source, out, count = sys.argv[1], sys.argv[2], int(sys.argv[3])
    start = time.perf_counter()
    shutil.copyfile(source, out)
    with open(out, "r+b") as f:
        data = f.read()
        _, tdef = find_table(data)
        t = bytearray(data[tdef * PAGE : (tdef + 1) * PAGE])
        map_place = struct.unpack_from("<I", t, 55)[0]
        map_page, map_row = map_place >> 8, map_place & 0xFF
        m = bytearray(data[map_page * PAGE : (map_page + 1) * PAGE])
        map_start, map_end = rows_of(m)[map_row]
        if map_end - map_start < 5:
            sys.exit("the table's usage map is too small")

        first = len(data) // PAGE
        bitmap_page = first
        per_page = (PAGE - 14) // (len(row(count)) + 2)
        pages = (count + per_page - 1) // per_page
        if first + 1 + pages >= (PAGE - 4) * 8:
            sys.exit("too many rows for one bitmap page")
        bitmap = bytearray(PAGE)
        bitmap[0], bitmap[1] = USAGE_PAGE, 0x01
        f.seek(0, 2)
        f.write(bytes(PAGE))  # the bitmap page, written last
        number = 1
        for p in range(pages):
            rows = [row(n) for n in range(number, min(count, number + per_page - 1) + 1)]
            number += len(rows)
            f.write(data_page(tdef, rows))
            at = first + 1 + p
            bitmap[4 + at // 8] |= 1 << (at % 8)
        f.seek(bitmap_page * PAGE)
        f.write(bitmap)

        # A reference map: one pointer to the bitmap page, the others empty.
        m[map_start:map_end] = bytes([1]) + struct.pack("<I", bitmap_page) + bytes(
            map_end - map_start - 5
        )
        f.seek(map_page * PAGE)
        f.write(m)
        struct.pack_into("<I", t, 16, count)
        f.seek(tdef * PAGE)
        f.write(t)
    print("%.1f" % (time.perf_counter() - start))


if __name__ == "__main__":
    main()
