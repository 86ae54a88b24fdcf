#pragma once

#include <QString>

// An error as the program's handlers test it: a number and its description.
// Number 0 means no error.
class AppError {
public:
    // The numbers the handlers look at.
    enum Number : int {
        None = 0,
        Overflow = 6,
        TypeMismatch = 13,
        FileNotFound = 53,
        DiskFull = 61,
        InputPastEnd = 62,
        DeviceUnavailable = 68,
        PathFileAccess = 75,
        PathNotFound = 76,
    };

    AppError() = default;
    explicit AppError(int number);
    AppError(int number, QString description);

    // The error for the C library's errno value of a failed file call.
    static AppError fromErrno(int err);

    int number() const { return m_number; }
    const QString& description() const { return m_description; }
    bool isError() const { return m_number != 0; }
    explicit operator bool() const { return isError(); }

    // The standard description of a number, or an empty string.
    static QString describe(int number);

private:
    int m_number = 0;
    QString m_description;
};
