#pragma once

#include "platform/AppError.h"

#include <QImage>
#include <QSize>
#include <QString>

// One thumbnail: from the desktop's thumbnail cache when it holds one made from the picture as
// it is now, else decoded (JPEG scaled down while it is decoded, other formats through the
// picture codec and then scaled with a smooth filter) and kept in the cache. The thumbnail fits
// the box in the picture's proportions and has the colour depth asked for.
namespace ThumbnailMaker {

// Files larger than this get no thumbnail.
inline constexpr qint64 SizeLimit = 4'096'000;
// The colour depths a thumbnail may take, by their index in the options.
inline constexpr int Depths[] = {32, 24, 16, 8, 7, 6, 5, 4, 3, 2, 1};

struct Made {
    QImage image;
    bool fromCache = false;
    AppError error; // the codec's failure, or ReadFailed for a file over the size limit
};

Made make(const QString& path, QSize box, int depthBits);

// The picture in a colour depth of the table, dithered where colours are lost.
QImage withDepth(const QImage& image, int bits);

} // namespace ThumbnailMaker
