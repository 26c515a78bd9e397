#include "eventidlist.h"

#include "decimaltext.h"
#include "replyframe.h"
#include "textitems.h"
#include "textwriter.h"

#include <algorithm>
#include <iterator>

namespace {

// The framework's searches take longer to set up than an item is long.

int indexOfWord(QStringView item)
{
    constexpr char16_t word[] = {u'I', u'D', u':'};
    const QChar* found = std::search(item.begin(), item.end(), std::begin(word), std::end(word));
    return found == item.end() ? -1 : static_cast<int>(found - item.begin());
}

int indexOfClosing(QStringView item, int from)
{
    const QChar* found = std::find(item.begin() + from, item.end(), QLatin1Char(')'));
    return found == item.end() ? -1 : static_cast<int>(found - item.begin());
}

} // namespace

int EventIdList::idInItem(QStringView item)
{
    const int start = indexOfWord(item);
    // As the framework's search does from an index of -1.
    const int lastCharacter = qMax(0, static_cast<int>(item.size()) - 1);
    const int end = indexOfClosing(item, start < 0 ? lastCharacter : start);
    return decimalNumber(item, start + 3, end - start - 3);
}

QByteArray EventIdList::fromText(const QString& text)
{
    const QLatin1Char separator(';');
    const auto separators = std::count(text.begin(), text.end(), separator);
    QByteArray ids(static_cast<int>(separators) + 1, Qt::Uninitialized);
    TextItems items(text, separator);
    for (char& id : ids)
        id = static_cast<char>(idInItem(items.next()));
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
