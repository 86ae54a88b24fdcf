#pragma once

#include <QImage>
#include <QString>

// The desktop's shared thumbnail cache (the freedesktop.org layout): PNG files named by the MD5
// of the picture's file URI under $XDG_CACHE_HOME/thumbnails/normal (up to 128 pixels) or
// large (up to 256), each recording the URI and the modification time of the picture it was
// made from, and failures marked under fail/quorvane/. Thumbnails made by the desktop's file
// manager serve the program, and the program's serve it.
namespace ThumbnailCache {

// $XDG_CACHE_HOME/thumbnails, or ~/.cache/thumbnails.
QString root();
// The file URI of a path, escaped as the cache names it.
QString uriOf(const QString& path);
// Where the thumbnail of a picture for the longer side `size` lies.
QString pathFor(const QString& path, int size);

// The cached thumbnail of a picture, when there is one made from the picture as it is now.
QImage read(const QString& path, int size);
// Keeps a thumbnail (written whole or not at all); false when the cache cannot be written.
bool write(const QString& path, int size, const QImage& thumbnail);

// Whether the picture as it is now is marked as one that gives no thumbnail, and marking it.
bool hasFailed(const QString& path);
void markFailed(const QString& path);

} // namespace ThumbnailCache
