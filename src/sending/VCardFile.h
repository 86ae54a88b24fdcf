#pragma once

#include <QList>
#include <QString>

// The contacts of a vCard file (.vcf), the form desktop address books export: for each card its
// formatted name (or the parts of its name) and its first e-mail address.
namespace VCardFile {

struct Contact {
    QString name;
    QString address;
};

QList<Contact> read(const QString& path);

} // namespace VCardFile
