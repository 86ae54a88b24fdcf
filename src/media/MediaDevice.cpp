#include "media/MediaDevice.h"

using namespace Qt::StringLiterals;

MediaDrive::~MediaDrive() = default;

MediaDevice::MediaDevice(std::unique_ptr<MediaDrive> drive) : m_drive(std::move(drive)) {}

MediaDevice::~MediaDevice() {
    setCommand(u"Close"_s);
}

void MediaDevice::setCommand(const QString& command) {
    if (!m_drive)
        return;
    if (command == u"Open"_s) {
        m_open = m_drive->open(DeviceType, FileName);
        m_track = m_open ? 1 : 0;
    } else if (command == u"Next"_s) {
        if (m_open)
            ++m_track;
        if (m_playing)
            m_drive->play(m_track);
    } else if (command == u"Play"_s) {
        if (m_open) {
            m_drive->play(m_track);
            m_playing = true;
        }
    } else if (command == u"Stop"_s) {
        if (m_playing)
            m_drive->stop();
        m_playing = false;
    } else if (command == u"Close"_s) {
        setCommand(u"Stop"_s);
        if (m_open)
            m_drive->close();
        m_open = false;
        m_track = 0;
    }
}
