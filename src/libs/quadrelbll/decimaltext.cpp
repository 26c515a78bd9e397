#include "decimaltext.h"

void appendDecimal(QString& text, quint16 number, int digits)
{
    // Writes the digits from the last to the first, without a text for each number.
    constexpr int maximumDigits = 5;
    QChar buffer[maximumDigits];
    int first = maximumDigits;
    while (first > 0 && (number != 0 || maximumDigits - first < digits)) {
        buffer[--first] = QLatin1Char(static_cast<char>('0' + number % 10));
        number /= 10;
    }
    text.append(buffer + first, maximumDigits - first);
}

int decimalNumber(const QStringRef& text)
{
    // Blocks are full of short plain numbers. The framework has all other forms, signs and blanks.
    constexpr int safeDigits = 9;
    if (text.size() > safeDigits)
        return text.toInt();
    int number = 0;
    for (const QChar digit : text) {
        if (digit < QLatin1Char('0') || digit > QLatin1Char('9'))
            return text.toInt();
        number = 10 * number + (digit.unicode() - '0');
    }
    return number;
}
