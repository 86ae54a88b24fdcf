#pragma once

#include "media/ThumbnailMaker.h"

#include <QImage>
#include <QObject>
#include <QSize>
#include <QStringList>

#include <map>
#include <memory>

class QThreadPool;

// Makes the thumbnails of a folder's pictures: every file of the first extension (by name),
// then every file of the next, and so on. Pictures are decoded on worker threads a few files
// ahead, while `made` is emitted on the generator's own thread in that order, one thumbnail at a
// time. A stop answers at once: `finished` comes with Stopped and nothing more is delivered.
class ThumbnailGenerator : public QObject {
    Q_OBJECT
public:
    // How a run ends.
    enum End { Done = 0, NothingMatched = 20010, Stopped = 20100 };

    struct Settings {
        QSize box{115, 115};
        int depthBits = 16;
        QStringList extensions; // upper case, without the dot, in the order of delivery
    };

    explicit ThumbnailGenerator(QObject* parent = nullptr);
    ~ThumbnailGenerator() override;

    // The pictures of a folder for the extensions, in the order they are delivered.
    static QStringList picturesOf(const QString& folder, const QStringList& extensions);

    void start(const QString& folder, const Settings& settings);
    void stop();
    bool isRunning() const { return m_running; }

Q_SIGNALS:
    // A thumbnail made; files that give none are passed over.
    void made(const QString& path, const QImage& thumbnail, bool fromCache);
    void finished(int end);

private:
    class Courier;
    void submit();
    void arrived(int run, int index, const ThumbnailMaker::Made& made);
    void deliver();
    void end(int how);

    Settings m_settings;
    QStringList m_files;
    int m_run = 0;
    int m_submitted = 0;
    int m_delivered = 0;
    int m_ahead = 4;
    bool m_running = false;
    std::map<int, ThumbnailMaker::Made> m_waiting;
    std::shared_ptr<Courier> m_courier;
    std::unique_ptr<QThreadPool> m_serial;
};
