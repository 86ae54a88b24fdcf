#include "media/AudioVideo1.h"
#include "media/MediaDevice.h"
#include "shell/ShellList.h"
#include "support/MainWindowHarness.h"

#include <QMediaPlayer>
#include <QPointer>
#include <QProcess>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

// A CD drive that is not there: it writes down what it is asked.
struct DriveLog {
    QStringList calls;
};

class RecordingDrive final : public MediaDrive {
public:
    explicit RecordingDrive(DriveLog& log) : m_log(log) {}
    bool open(const QString& type, const QString&) override {
        m_log.calls.append(u"open "_s + type);
        return true;
    }
    void play(int track) override { m_log.calls.append(u"play %1"_s.arg(track)); }
    void stop() override { m_log.calls.append(u"stop"_s); }
    void close() override { m_log.calls.append(u"close"_s); }

private:
    DriveLog& m_log;
};

} // namespace

// The player, headless: real clips through QtMultimedia (no sound device needed), and the CD
// through a stand-in drive.
class AudioVideo1Test : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<MainWindowHarness> h;
    DriveLog log;

    QPointer<AudioVideo1> play(const QString& path) {
        globals().gOpenFile = path;
        WindowRegistry::show(AudioVideo1::WindowName());
        return qobject_cast<AudioVideo1*>(WindowRegistry::find(AudioVideo1::WindowName()));
    }

private Q_SLOTS:
    void init() {
        log = {};
        AudioVideo1::setDriveFactory([this] { return std::make_unique<RecordingDrive>(log); });
        h = std::make_unique<MainWindowHarness>();
    }
    void cleanup() {
        h.reset();
        AudioVideo1::setDriveFactory({});
    }

    void clipsWaitForPlayThenTheirPositionMoves() {
        h->start();
        const QString wav = h->folder().file(u"tone.wav"_s);
        QProcess::execute(
            u"sox"_s, {u"-n"_s, u"-r"_s, u"22050"_s, wav, u"synth"_s, u"3"_s, u"sine"_s, u"440"_s});
        QProcess::execute(u"ffmpeg"_s, {u"-loglevel"_s, u"error"_s, u"-y"_s, u"-i"_s, wav,
                                        h->folder().file(u"tone.mp3"_s)});
        QProcess::execute(u"ffmpeg"_s,
                          {u"-loglevel"_s, u"error"_s, u"-y"_s, u"-f"_s, u"lavfi"_s, u"-i"_s,
                           u"testsrc=duration=3:size=160x120:rate=25"_s, u"-c:v"_s, u"mpeg1video"_s,
                           h->folder().file(u"clip.mpg"_s)});
        h->folder().write(u"list.m3u"_s, "#EXTM3U\r\ntone.mp3\r\n");
        for (const QString& name : {u"tone.wav"_s, u"tone.mp3"_s, u"clip.mpg"_s, u"list.m3u"_s}) {
            QPointer<AudioVideo1> window = play(h->folder().file(name));
            QTRY_VERIFY(!window->NewFileWaiting);
            QCOMPARE(window->player->playbackState(), QMediaPlayer::StoppedState);
            window->OKBtn->click();
            QTRY_VERIFY2(window->player->position() > 300, qPrintable(name));
            window->CancelBtn->click();
            QTRY_VERIFY(!window);
        }
        // A clip the player refuses leaves it silent, without a word, its buttons there.
        h->folder().write(u"broken.wav"_s, QByteArray("RIFF\x24\0\0\0WAVEjunkjunkjunk", 24));
        const int said = h->messages().texts().size();
        QPointer<AudioVideo1> refused = play(h->folder().file(u"broken.wav"_s));
        QTRY_VERIFY(!refused->NewFileWaiting);
        refused->OKBtn->click();
        QTRY_VERIFY(refused->player->error() != QMediaPlayer::NoError);
        QCOMPARE(refused->player->playbackState(), QMediaPlayer::StoppedState);
        QVERIFY(refused->OKBtn->isEnabled() && refused->CancelBtn->isEnabled());
        QCOMPARE(h->messages().texts().size(), said);
        refused->CancelBtn->click();
        QTRY_VERIFY(!refused);
        // A kind the player does not know opens it and leaves it idle.
        h->folder().write(u"notes.abc"_s, "x");
        QPointer<AudioVideo1> window = play(h->folder().file(u"notes.abc"_s));
        QTRY_VERIFY(!window->NewFileWaiting);
        window->OKBtn->click();
        QCOMPARE(window->player->playbackState(), QMediaPlayer::StoppedState);
        window->close();
    }

    void aCdTrackPlaysAtOnceFoundByItsPlaceAndAnotherChoiceStopsIt() {
        for (const char* name : {"Track01.cda", "Track02.cda", "Track03.cda"})
            h->folder().write(QString::fromLatin1(name), "RIFF");
        h->start();
        ShellList* list = h->window()->shellList();
        QVERIFY(list->selectName(u"Track03.cda"_s));
        const int place = list->selectedIndex();
        QPointer<AudioVideo1> window = play(h->folder().file(u"Track03.cda"_s));
        QTRY_VERIFY(!window->NewFileWaiting);
        QCOMPARE(log.calls.filter(u"open"_s), QStringList{u"open CDAudio"_s});
        QCOMPARE(log.calls.last(), u"play %1"_s.arg(1 + place));

        QVERIFY(list->selectName(u"Track01.cda"_s));
        globals().gCurrentFile = h->folder().file(u"Track01.cda"_s);
        h->activateMain();
        window->activateWindow();
        QTRY_COMPARE(log.calls.last(), u"stop"_s);
        window->close();
    }
};

QTEST_MAIN(AudioVideo1Test)
#include "AudioVideo1Test.moc"
