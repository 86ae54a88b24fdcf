#pragma once

#include <QByteArray>
#include <QString>

#include <iconv.h>

// Text in a DOS or Windows code page, as UTF-16; Latin-1 when the code page is unknown. The text
// ends at its first zero byte.
class ParadoxCodePage {
public:
    explicit ParadoxCodePage(int number);
    ~ParadoxCodePage();
    ParadoxCodePage(const ParadoxCodePage&) = delete;
    ParadoxCodePage& operator=(const ParadoxCodePage&) = delete;

    QString decode(QByteArray bytes) const;

private:
    iconv_t m_convert = reinterpret_cast<iconv_t>(-1);
};
