// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QString>

/** How far a unit's clock is from this machine's, as in "00:00:02 ahead of this machine's". */
QString describeDifference(qint64 seconds);

/** The clock's text with what is to be said of it in brackets. */
QString clockLine(const QString& text);

/** `clock`, and `differenceSeconds` if that is a real time. */
QJsonObject clockToJson(const QString& text);
