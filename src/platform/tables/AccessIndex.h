#pragma once

#include <QByteArray>

#include <functional>
#include <vector>

// The order of a Jet index, read from its pages: a B-tree of index pages (type 3) over leaf
// pages (type 4), each page marking where its entries start in a bitmap, each entry ending in
// the place of the row it stands for (a three-byte page, most significant byte first, and a
// row number). Leaves added at the end of an index hang off the last leaf's next-page link.
//
// Each page is checked before it is used: a page of the index's table, of an index kind, read
// once only, no deeper than any real index goes; a damaged index ends where it stops making
// sense, never loops.
namespace AccessIndex {

struct RowPlace {
    quint32 page = 0;
    quint16 row = 0;
};

struct Layout {
    int pageSize = 4096;
    int bitmapAt = 0x1b;   // Jet 3: 0x16
    int entriesAt = 0x1e0; // Jet 3: 0xf8
};

Layout layoutFor(bool jet4);

// Reads a page's bytes; false when the page cannot be read.
using PageReader = std::function<bool(quint32 page, QByteArray* bytes)>;

// The places of the rows in the order of the index whose root page is given, for the table
// whose definition is on tablePage, in a file of pageCount pages.
std::vector<RowPlace> rowOrder(const PageReader& read, const Layout& layout, quint32 root,
                               quint32 tablePage, quint32 pageCount);

} // namespace AccessIndex
