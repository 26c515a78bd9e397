#include "eventidlist.h"

#include "decimaltext.h"
#include "replyframe.h"
#include "textwriter.h"

#include <algorithm>
#include <iterator>

namespace {

/** Of the first "ID:" or -1. The framework's search takes longer to set up than an item is long. */
int indexOfWord(const QStringRef& item)
{
    constexpr char16_t word[] = {u'I', u'D', u':'};
    const QChar* found = std::search(item.begin(), item.end(), std::begin(word), std::end(word));
    return found == item.end() ? -1 : static_cast<int>(found - item.begin());
}

} // namespace

int EventIdList::idInItem(const QStringRef& item)
{
    const int start = indexOfWord(item);
    const int end = item.indexOf(QLatin1Char(')'), start);
    return decimalNumber(item.mid(start + 3, end - start - 3));
}

QByteArray EventIdList::fromText(const QString& text)
{
    const QLatin1Char separator(';');
    QByteArray ids(text.count(separator) + 1, Qt::Uninitialized);
    int start = 0;
    for (char& id : ids) {
        const int end = text.indexOf(separator, start);
        id = static_cast<char>(idInItem(text.midRef(start, end < 0 ? -1 : end - start)));
        start = end + 1;
    }
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
