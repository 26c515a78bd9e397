#pragma once

#include <QtCore/QStringView>

/** What QString::toInt() makes of the text: 0 for all that is no number. */
int decimalNumber(QStringView text);

/**
 * The same of the part that QString::mid() gives: to the end of the text if `length` is negative or
 * more than there is, empty if `start`, which is never negative, lies behind the end.
 */
int decimalNumber(QStringView text, int start, int length);
