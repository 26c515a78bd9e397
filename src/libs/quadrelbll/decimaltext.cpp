#include "decimaltext.h"

#include <QtCore/QString>

int decimalNumber(QStringView text)
{
    // Blocks are full of short plain numbers. The framework has all other forms, signs and blanks.
    constexpr int safeDigits = 9;
    if (text.size() > safeDigits)
        return text.toString().toInt();
    int number = 0;
    for (const QChar digit : text) {
        if (digit < QLatin1Char('0') || digit > QLatin1Char('9'))
            return text.toString().toInt();
        number = 10 * number + (digit.unicode() - '0');
    }
    return number;
}

int decimalNumber(QStringView text, int start, int length)
{
    const qsizetype left = text.size() - start;
    if (left <= 0)
        return 0;
    return decimalNumber(text.mid(start, length < 0 ? left : qMin<qsizetype>(length, left)));
}
