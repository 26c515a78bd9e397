// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtCore/QVariant>
#include <QtCore/QVector>

/** A value to choose, and what people read. */
struct Choice {
    QString text;
    QVariant value;
};

/** The choices of the fields of a unit, in the language of the application. */
namespace Choices {

QVector<Choice> baudRates();
QVector<Choice> dataBits();
QVector<Choice> stopBits();
/** 0, 1 and none, as SerialPort::inspection counts them. */
QVector<Choice> inspections();
QVector<Choice> ioTypes();
/** High, low and none, which is an invalid value; the others are a QuadrelDocument::Level. */
QVector<Choice> levels();
/** The values are a QuadrelDocument::TriggerKind. */
QVector<Choice> kinds();
/** The first lines of the kind: "COM A-1" and on. */
QVector<Choice> lines(
    QuadrelDocument::TriggerKind kind, int count = QuadrelDocument::triggerLineCount);
/** The values are a QuadrelDocument::Repeat. */
QVector<Choice> repeats();

} // namespace Choices
