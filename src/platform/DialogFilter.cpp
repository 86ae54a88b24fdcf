#include "platform/DialogFilter.h"

namespace DialogFilter {

QStringList toNameFilters(const QString& pairs) {
    const QStringList parts = pairs.split(u'|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString masks = parts[i + 1];
        masks.replace(u';', u' ');
        filters.append(parts[i].trimmed() + u" (" + masks.trimmed() + u')');
    }
    return filters;
}

} // namespace DialogFilter
