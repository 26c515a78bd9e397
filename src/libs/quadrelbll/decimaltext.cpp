#include "decimaltext.h"

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
