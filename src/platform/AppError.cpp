#include "platform/AppError.h"

#include <cerrno>

using namespace Qt::StringLiterals;

AppError::AppError(int number) : m_number(number), m_description(describe(number)) {}

AppError::AppError(int number, QString description)
    : m_number(number), m_description(std::move(description)) {}

AppError AppError::fromErrno(int err) {
    switch (err) {
    case 0:
        return AppError(PathFileAccess);
    case ENOENT:
        return AppError(PathNotFound);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return AppError(DiskFull);
    case ENOMEDIUM:
    case ENODEV:
    case ENXIO:
        return AppError(DeviceUnavailable);
    default:
        return AppError(PathFileAccess);
    }
}

QString AppError::describe(int number) {
    switch (number) {
    case None:
        return {};
    case Overflow:
        return u"Overflow"_s;
    case TypeMismatch:
        return u"Type mismatch"_s;
    case FileNotFound:
        return u"File not found"_s;
    case DiskFull:
        return u"Disk full"_s;
    case InputPastEnd:
        return u"Input past end of file"_s;
    case DeviceUnavailable:
        return u"Device unavailable"_s;
    case PathFileAccess:
        return u"Path/File access error"_s;
    case PathNotFound:
        return u"Path not found"_s;
    default:
        return u"Application-defined or object-defined error"_s;
    }
}
