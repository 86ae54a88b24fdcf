#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>

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

    QByteArray read(const QString& name) const {
        QFile in(file(name));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

    bool exists(const QString& name) const { return QFile::exists(file(name)); }

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
