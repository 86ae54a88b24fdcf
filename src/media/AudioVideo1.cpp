#include "media/AudioVideo1.h"

#include "media/MediaDevice.h"
#include "platform/Activation.h"
#include "platform/PathUtil.h"
#include "platform/TextFile.h"
#include "platform/Twips.h"
#include "shell/Globals.h"
#include "shell/Help.h"
#include "shell/NamedWidgets.h"
#include "shell/Quorvane1.h"
#include "shell/ShellList.h"

#include <QAudioOutput>
#include <QCloseEvent>
#include <QDir>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QMediaPlayer>
#include <QPushButton>
#include <QSlider>
#include <QTime>
#include <QUrl>
#include <QVBoxLayout>
#include <QVideoWidget>

using namespace Qt::StringLiterals;

namespace {

int px(double twips) {
    return Twips::toPixels(twips);
}

const QStringList& playerExtensions() {
    static const QStringList list = {u"WAV"_s, u"MID"_s, u"RMI"_s, u"AVI"_s,
                                     u"MPG"_s, u"MOV"_s, u"MP3"_s, u"M3U"_s};
    return list;
}

// CD audio through GStreamer's cdda source, "DAT" files (video CD MPEG) as files.
class PlayerDrive final : public MediaDrive {
public:
    explicit PlayerDrive(QMediaPlayer* player) : m_player(player) {}
    bool open(const QString& deviceType, const QString& file) override {
        m_cd = deviceType == u"CDAudio"_s;
        m_file = file;
        return true;
    }
    void play(int track) override {
        m_player->setSource(m_cd ? QUrl(u"cdda://%1"_s.arg(track)) : QUrl::fromLocalFile(m_file));
        m_player->play();
    }
    void stop() override { m_player->stop(); }
    void close() override { m_player->setSource(QUrl()); }

private:
    QMediaPlayer* m_player;
    bool m_cd = false;
    QString m_file;
};

AudioVideo1::DriveFactory& driveFactory() {
    static AudioVideo1::DriveFactory factory;
    return factory;
}

} // namespace

void AudioVideo1::setDriveFactory(DriveFactory factory) {
    driveFactory() = std::move(factory);
}

AudioVideo1::AudioVideo1(QWidget* parent) : QWidget(parent, Qt::Window) {
    setObjectName(WindowName());
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Play Audio and Video Files"));
    player = new QMediaPlayer(this);
    m_audio = new QAudioOutput(this);
    player->setAudioOutput(m_audio);
    device = std::make_unique<MediaDevice>(driveFactory() ? driveFactory()()
                                                          : std::make_unique<PlayerDrive>(player));

    Label1 = NamedWidgets::label(this, u"Label1"_s, {});
    Frame1 = new QFrame(this);
    Frame1->setObjectName(u"Frame1"_s);
    Frame1->setFrameShape(QFrame::StyledPanel);
    ActiveMovie1 = new QVideoWidget(Frame1);
    ActiveMovie1->setObjectName(u"ActiveMovie1"_s);
    ActiveMovie1->setAccessibleName(tr("Microsoft Audio/Video Media Player"));
    ActiveMovie1->setToolTip(ActiveMovie1->accessibleName());
    player->setVideoOutput(ActiveMovie1);
    PositionBar = new QSlider(Qt::Horizontal, Frame1);
    PositionBar->setObjectName(u"PositionBar"_s);
    PositionBar->setAccessibleName(tr("Position"));
    TimeLabel = NamedWidgets::label(Frame1, u"TimeLabel"_s, u"0:00 / 0:00"_s);
    MMControl1 = new QWidget(Frame1);
    MMControl1->setObjectName(u"MMControl1"_s);
    MMControl1->setAccessibleName(tr("CD and DAT Player"));
    auto* deviceRow = new QVBoxLayout(MMControl1);
    TrackLabel = NamedWidgets::label(MMControl1, u"TrackLabel"_s, {});
    deviceRow->addWidget(TrackLabel);
    MMControl1->hide();

    OKBtn = NamedWidgets::button(this, "OKBtn", tr("Play"), tr("Play Audio Video File"));
    CancelBtn = NamedWidgets::button(this, "CancelBtn", tr("Cancel"),
                                     tr("Close Audio Video File Player Window"));
    HelpBtn = NamedWidgets::button(this, "HelpBtn", tr("&Help"), tr("Help with Playing Files"));
    connect(OKBtn, &QPushButton::clicked, this, &AudioVideo1::OKBtn_Click);
    connect(CancelBtn, &QPushButton::clicked, this, &AudioVideo1::CancelBtn_Click);
    connect(HelpBtn, &QPushButton::clicked, this, [this] { Help::showTopic(this); });
    connect(player, &QMediaPlayer::positionChanged, this, &AudioVideo1::showPosition);
    connect(player, &QMediaPlayer::durationChanged, this, &AudioVideo1::showPosition);
    connect(PositionBar, &QSlider::sliderMoved, player, &QMediaPlayer::setPosition);
    connect(player, &QMediaPlayer::mediaStatusChanged, this, [this](QMediaPlayer::MediaStatus s) {
        if (s == QMediaPlayer::EndOfMedia)
            playNextOfList();
    });
    // A clip the pipeline refuses ends in silence: the player stops, the window stays.
    connect(player, &QMediaPlayer::errorOccurred, player, &QMediaPlayer::stop);
    globals().gAudioVideoOpen = true;
}

AudioVideo1::~AudioVideo1() {
    // The media pipeline lets go of the picture area and the clip before they go.
    player->stop();
    player->setVideoOutput(nullptr);
    player->setSource(QUrl());
    globals().gAudioVideoOpen = false;
}

void AudioVideo1::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (Activation::becameActive(this, event))
        Form_Activate();
}

void AudioVideo1::Form_Activate() {
    Globals& g = globals();
    NamedWidgets::paintWindow(this);
    if (NewFileWaiting) {
        Label1->setText(g.gOpenFile);
        setWindowTitle(tr("Play - ") + g.gOpenFile);
        preparePlayer(Label1->text());
        NewFileWaiting = false;
    } else if (device->DeviceType == u"CDAudio"_s && Label1->text() != g.gCurrentFile) {
        // Another track chosen in the main window stops the CD.
        sendCommand(u"Stop"_s);
    }
}

void AudioVideo1::sendCommand(const QString& command) {
    device->setCommand(command);
    TrackLabel->setText(device->isOpen()
                            ? tr("%1 - Track %2").arg(device->DeviceType).arg(device->track())
                            : device->DeviceType);
}

void AudioVideo1::placeButtons(double top) {
    int x = px(225);
    for (QPushButton* b : {OKBtn, CancelBtn, HelpBtn}) {
        b->setGeometry(x, px(top), px(1200), px(375));
        x += px(1400);
    }
}

void AudioVideo1::preparePlayer(const QString& path) {
    mExt = path.section(u'.', -1).toUpper();
    m_list.clear();
    if (mExt != u"DAT"_s && mExt != u"CDA"_s) {
        setGeometry(px(2750), px(800), px(4980), px(6075));
        placeButtons(5175);
        Frame1->setGeometry(px(75), px(600), px(4440), px(4740));
        MMControl1->hide();
        ActiveMovie1->setGeometry(px(225), px(225), px(4290), px(4065));
        ActiveMovie1->show();
        if (mExt == u"M3U"_s) {
            // The entries of the list, relative to its folder, played in order.
            const QDir folder(PathUtil::folderOf(path));
            for (const QString& line : TextFile::readLines(path).lines) {
                if (!line.trimmed().isEmpty() && !line.startsWith(u'#'))
                    m_list.append(folder.absoluteFilePath(line.trimmed()));
            }
            player->setSource(m_list.isEmpty() ? QUrl() : QUrl::fromLocalFile(m_list.takeFirst()));
        } else {
            player->setSource(QUrl::fromLocalFile(path));
        }
        return;
    }
    setGeometry(px(2900), px(1000), px(5000), px(3000));
    Frame1->setGeometry(px(75), px(75), px(5000 - 220), px(3000 - 1650));
    ActiveMovie1->hide();
    MMControl1->setGeometry(px(670), px(1000) - Frame1->y(), px(3000), px(500));
    placeButtons(2100);
    sendCommand(u"Close"_s);
    MMControl1->show();
    device->Notify = false;
    device->Wait = true;
    device->Shareable = false;
    sendCommand(u"Close"_s);
    device->FileName = path;
    if (mExt == u"DAT"_s) {
        device->DeviceType = u"DAT"_s;
        sendCommand(u"Open"_s);
        return;
    }
    device->DeviceType = u"CDAudio"_s;
    const Quorvane1* main = Quorvane1::instance();
    const int position = main ? std::max(main->shellList()->selectedIndex(), 0) : 0;
    sendCommand(u"Open"_s);
    for (int i = 1; i <= position; ++i)
        sendCommand(u"Next"_s);
    sendCommand(u"Play"_s);
}

void AudioVideo1::playNextOfList() {
    if (m_list.isEmpty())
        return;
    player->setSource(QUrl::fromLocalFile(m_list.takeFirst()));
    player->play();
}

void AudioVideo1::OKBtn_Click() {
    if (mExt == u"DAT"_s || mExt == u"CDA"_s)
        sendCommand(u"Play"_s);
    else if (playerExtensions().contains(mExt))
        player->play();
}

void AudioVideo1::CancelBtn_Click() {
    sendCommand(u"Stop"_s);
    sendCommand(u"Close"_s);
    player->stop();
    close();
}

void AudioVideo1::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        OKBtn_Click();
    else
        QWidget::keyPressEvent(event);
}

void AudioVideo1::closeEvent(QCloseEvent* event) {
    player->stop();
    globals().gAudioVideoOpen = false;
    QWidget::closeEvent(event);
}

void AudioVideo1::showPosition() {
    const qint64 at = player->position();
    const qint64 length = player->duration();
    PositionBar->setRange(0, int(std::max<qint64>(length, 0)));
    if (!PositionBar->isSliderDown())
        PositionBar->setValue(int(at));
    const auto text = [](qint64 ms) {
        return QTime(0, 0).addMSecs(int(ms)).toString(ms >= 3600000 ? u"h:mm:ss"_s : u"m:ss"_s);
    };
    TimeLabel->setText(text(at) + u" / "_s + text(length));
}

void AudioVideo1::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const double w = Twips::fromPixels(width());
    const double h = Twips::fromPixels(height());
    Label1->setGeometry(px(75), px(150), std::max(px(w - 150), 1), px(300));
    Frame1->resize(std::max(px(w - 260), 1), std::max(px(h - 1400), 1));
    if (ActiveMovie1->isVisible())
        ActiveMovie1->resize(std::max(px(w - 800), 1), std::max(px(h - 1750), 1));
    // The position bar and the time under the picture, inside the frame.
    const int barTop = Frame1->height() - px(330);
    PositionBar->setGeometry(px(150), barTop, std::max(Frame1->width() - px(1750), 1), px(240));
    TimeLabel->setGeometry(Frame1->width() - px(1500), barTop, px(1400), px(240));
    const double factors[] = {0.95, 0.62, 0.28};
    int i = 0;
    for (QPushButton* b : {OKBtn, CancelBtn, HelpBtn})
        b->setGeometry(px(w - w * factors[i++]), px(h - 790), px(1200), px(375));
}
