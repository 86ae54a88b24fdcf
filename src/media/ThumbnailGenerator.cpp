#include "media/ThumbnailGenerator.h"

#include "platform/imaging/ImageCodec.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QThreadPool>

// Brings a worker's thumbnail back to the generator's thread. The workers share it, so it lives
// until the last of them is done, and it forwards only while the generator exists.
class ThumbnailGenerator::Courier : public QObject {
public:
    explicit Courier(ThumbnailGenerator* generator) : m_generator(generator) {}
    void bring(int run, int index, ThumbnailMaker::Made made) {
        QMetaObject::invokeMethod(
            this,
            [this, run, index, made = std::move(made)] {
                if (m_generator)
                    m_generator->arrived(run, index, made);
            },
            Qt::QueuedConnection);
    }

private:
    QPointer<ThumbnailGenerator> m_generator;
};

ThumbnailGenerator::ThumbnailGenerator(QObject* parent)
    : QObject(parent), m_serial(std::make_unique<QThreadPool>()) {
    // Readers other than Qt's and TurboJPEG (ImageMagick, Ghostscript, helper programs) run one
    // at a time.
    m_serial->setMaxThreadCount(1);
    m_ahead = std::max(2, QThreadPool::globalInstance()->maxThreadCount());
    m_courier = std::shared_ptr<Courier>(new Courier(this), [](Courier* c) { c->deleteLater(); });
}

ThumbnailGenerator::~ThumbnailGenerator() {
    m_running = false;
    m_serial->waitForDone();
}

QStringList ThumbnailGenerator::picturesOf(const QString& folder, const QStringList& extensions) {
    QStringList files;
    QDir dir(folder);
    dir.setFilter(QDir::Files);
    dir.setSorting(QDir::Name | QDir::IgnoreCase);
    for (const QString& ext : extensions) {
        dir.setNameFilters({QStringLiteral("*.") + ext});
        for (const QString& name : dir.entryList())
            files.append(dir.filePath(name));
    }
    return files;
}

void ThumbnailGenerator::start(const QString& folder, const Settings& settings) {
    stop();
    ++m_run;
    m_settings = settings;
    m_files = picturesOf(folder, settings.extensions);
    m_submitted = 0;
    m_delivered = 0;
    m_waiting.clear();
    if (m_files.isEmpty()) {
        QMetaObject::invokeMethod(
            this, [this] { Q_EMIT finished(NothingMatched); }, Qt::QueuedConnection);
        return;
    }
    m_running = true;
    submit();
}

void ThumbnailGenerator::submit() {
    while (m_running && m_submitted < m_files.size() && m_submitted - m_delivered < m_ahead) {
        const int index = m_submitted++;
        const QString path = m_files.at(index);
        const Settings settings = m_settings;
        const int run = m_run;
        std::shared_ptr<Courier> courier = m_courier;
        const bool parallel =
            ImageCodec::readerFor(QFileInfo(path).suffix().toUpper()) == ImageCodec::Reader::Qt;
        QThreadPool* pool = parallel ? QThreadPool::globalInstance() : m_serial.get();
        pool->start([courier, run, index, path, settings] {
            courier->bring(run, index,
                           ThumbnailMaker::make(path, settings.box, settings.depthBits));
        });
    }
}

void ThumbnailGenerator::arrived(int run, int index, const ThumbnailMaker::Made& made) {
    if (run != m_run || !m_running)
        return;
    m_waiting.emplace(index, made);
    deliver();
}

void ThumbnailGenerator::deliver() {
    // Thumbnails go out in the order of the files; the go-on setting is looked at before each.
    for (auto next = m_waiting.find(m_delivered); m_running && next != m_waiting.end();
         next = m_waiting.find(m_delivered)) {
        const ThumbnailMaker::Made result = std::move(next->second);
        m_waiting.erase(next);
        const QString path = m_files.at(m_delivered++);
        if (!result.image.isNull())
            Q_EMIT made(path, result.image, result.fromCache);
    }
    if (!m_running)
        return;
    if (m_delivered == m_files.size())
        end(Done);
    else
        submit();
}

void ThumbnailGenerator::stop() {
    if (m_running)
        end(Stopped);
}

void ThumbnailGenerator::end(int how) {
    m_running = false;
    ++m_run; // what is still under way for this run is dropped when it comes back
    m_waiting.clear();
    Q_EMIT finished(how);
}
