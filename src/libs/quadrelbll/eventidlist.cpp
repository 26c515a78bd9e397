#include "eventidlist.h"

#include "decimaltext.h"
#include "replyframe.h"
#include "textwriter.h"

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
    constexpr int maximumDigits = 3;
    const int maximumItemSize =
        words.separator.size() + words.opening.size() + maximumDigits + words.closing.size();
    TextWriter writer(count * maximumItemSize);
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            writer.add(words.separator);
        writer.add(words.opening);
        writer.addDecimal(frame.payloadByte(offset + i));
        writer.add(words.closing);
    }
    return writer.text();
}
