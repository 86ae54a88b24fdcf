#pragma once

#include <QStringList>
#include <QWidget>

#include <functional>
#include <memory>

class MediaDevice;
class MediaDrive;
class QAudioOutput;
class QFrame;
class QLabel;
class QMediaPlayer;
class QPushButton;
class QSlider;
class QVideoWidget;

// Plays the sound or video of gOpenFile: CD tracks and "DAT" files through the media device,
// everything else through the media player, a video in the window and a sound with its
// position bar.
class AudioVideo1 : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool NewFileWaiting MEMBER NewFileWaiting)
public:
    static QString WindowName() { return QStringLiteral("AudioVideo1"); }
    explicit AudioVideo1(QWidget* parent = nullptr);
    ~AudioVideo1() override;

    // How the media device's drive is made (the real CD and DAT player unless a test says so).
    using DriveFactory = std::function<std::unique_ptr<MediaDrive>()>;
    static void setDriveFactory(DriveFactory factory);

    void OKBtn_Click();
    void CancelBtn_Click();

    bool NewFileWaiting = true;
    QString mExt;

    QFrame* Frame1;
    QLabel* Label1;
    QVideoWidget* ActiveMovie1;
    QSlider* PositionBar;
    QLabel* TimeLabel;
    QWidget* MMControl1;
    QLabel* TrackLabel;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;
    QMediaPlayer* player;
    std::unique_ptr<MediaDevice> device;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Form_Activate();
    void preparePlayer(const QString& path);
    void placeButtons(double top);
    void showPosition();
    void playNextOfList();
    void sendCommand(const QString& command);

    QAudioOutput* m_audio;
    QStringList m_list; // the entries of an M3U list still to play
};
