#pragma once

#include <QtCore/QString>
#include <QtCore/QStringRef>

/** Appends the number in decimal, with leading zeros up to `digits` digits. */
void appendDecimal(QString& text, quint16 number, int digits = 1);

/** What QStringRef::toInt makes of the text: 0 for all that is no number. */
int decimalNumber(const QStringRef& text);
