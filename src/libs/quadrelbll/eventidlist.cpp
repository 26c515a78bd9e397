#include "eventidlist.h"

#include "decimaltext.h"
#include "replyframe.h"

int EventIdList::idInItem(const QStringRef& item)
{
    const int start = item.indexOf(u"ID:");
    const int end = item.indexOf(QLatin1Char(')'), start);
    return decimalNumber(item.mid(start + 3, end - start - 3));
}

QByteArray EventIdList::fromText(const QString& text)
{
    const QLatin1Char separator(';');
    QByteArray ids;
    ids.reserve(text.count(separator) + 1);
    int start = 0;
    int end = 0;
    do {
        end = text.indexOf(separator, start);
        ids.append(static_cast<char>(idInItem(text.midRef(start, end < 0 ? -1 : end - start))));
        start = end + 1;
    } while (end >= 0);
    return ids;
}

QString EventIdList::read(const ReplyFrame& frame, int offset, int count, const Words& words)
{
    constexpr int digits = 3;
    QString text;
    text.reserve(
        count * (words.opening.size() + digits + words.closing.size() + words.separator.size()));
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            text += words.separator;
        text += words.opening;
        appendDecimal(text, frame.payloadByte(offset + i));
        text += words.closing;
    }
    return text;
}
