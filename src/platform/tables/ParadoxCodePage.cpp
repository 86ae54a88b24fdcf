#include "platform/tables/ParadoxCodePage.h"

ParadoxCodePage::ParadoxCodePage(int number) {
    if (number > 0)
        m_convert = iconv_open("UTF-8", QByteArray("CP" + QByteArray::number(number)).data());
}

ParadoxCodePage::~ParadoxCodePage() {
    if (m_convert != reinterpret_cast<iconv_t>(-1))
        iconv_close(m_convert);
}

QString ParadoxCodePage::decode(QByteArray bytes) const {
    bytes.truncate(static_cast<qsizetype>(qstrnlen(bytes.constData(), bytes.size())));
    if (m_convert == reinterpret_cast<iconv_t>(-1))
        return QString::fromLatin1(bytes);
    QByteArray out(bytes.size() * 4 + 4, '\0');
    char* in = bytes.data();
    size_t inLeft = static_cast<size_t>(bytes.size());
    char* to = out.data();
    size_t outLeft = static_cast<size_t>(out.size());
    iconv(m_convert, nullptr, nullptr, nullptr, nullptr);
    if (iconv(m_convert, &in, &inLeft, &to, &outLeft) == static_cast<size_t>(-1))
        return QString::fromLatin1(bytes);
    out.truncate(out.size() - static_cast<qsizetype>(outLeft));
    return QString::fromUtf8(out);
}
