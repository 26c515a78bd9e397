#pragma once

#include <QtCore/QStringRef>

/** What QStringRef::toInt makes of the text: 0 for all that is no number. */
int decimalNumber(const QStringRef& text);
