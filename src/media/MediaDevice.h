#pragma once

#include <QString>

#include <memory>

// What plays for the media device: a CD drive, or a player of "DAT" files.
class MediaDrive {
public:
    virtual ~MediaDrive();
    // Opens the drive for a device type ("CDAudio", "DAT") and, for a file device, its file;
    // false when there is nothing to open.
    virtual bool open(const QString& deviceType, const QString& file) = 0;
    virtual void play(int track) = 0;
    virtual void stop() = 0;
    virtual void close() = 0;
};

// A device that takes the commands "Open", "Play", "Stop", "Next" and "Close", as the program's
// CD and "DAT" players are driven: Open goes to the first track, Next steps to the one after it,
// Play plays the current one. Commands a device cannot carry out pass in silence.
class MediaDevice {
public:
    explicit MediaDevice(std::unique_ptr<MediaDrive> drive);
    ~MediaDevice();

    QString DeviceType;
    QString FileName;
    bool Notify = false;
    bool Wait = true;
    bool Shareable = false;

    void setCommand(const QString& command);

    bool isOpen() const { return m_open; }
    bool isPlaying() const { return m_playing; }
    int track() const { return m_track; }

private:
    std::unique_ptr<MediaDrive> m_drive;
    bool m_open = false;
    bool m_playing = false;
    int m_track = 0;
};
