#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QString>
#include <QTemporaryDir>

// The bytes of a file, none if it cannot be read.
inline QByteArray bytesOf(const QString& path) {
    QFile in(path);
    return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
}

// A fresh folder for one test, with helpers to write and read files in it.
class TempFolder {
public:
    QString path() const { return m_dir.path(); }
    QString file(const QString& name) const { return m_dir.filePath(name); }

    void write(const QString& name, const QByteArray& bytes) const {
        QFile out(file(name));
        if (out.open(QIODevice::WriteOnly))
            out.write(bytes);
    }

    QByteArray read(const QString& name) const { return bytesOf(file(name)); }

    bool exists(const QString& name) const { return QFile::exists(file(name)); }

    // A small real picture (format by extension): a red left half and a blue right half.
    void writePicture(const QString& name, QSize size = QSize(40, 30)) const {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::blue);
        for (int y = 0; y < size.height(); ++y)
            for (int x = 0; x < size.width() / 2; ++x)
                image.setPixel(x, y, qRgb(255, 0, 0));
        image.save(file(name), nullptr, 100);
    }

private:
    QTemporaryDir m_dir;
};

// Lines joined by CR LF, each ended by it.
inline QByteArray crlfLines(const QList<QByteArray>& lines) {
    QByteArray bytes;
    for (const QByteArray& line : lines)
        bytes += line + "\r\n";
    return bytes;
}
