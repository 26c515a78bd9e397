// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "cellvalues.h"

#include "editors/unitdates.h"
#include "editors/weekdays.h"

#include <unitcontents.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

using namespace QuadrelDocument;

namespace {

class Cells {
    Q_DECLARE_TR_FUNCTIONS(Cells)
};

/** "A-1" to "D-4". */
QString lineName(int line)
{
    return lineLabel(TriggerKind::Io, line).section(QLatin1Char(' '), 1);
}

/** The word for the value in documents; empty for values that are no words. */
QString wordOf(CellKind kind, int value)
{
    switch (kind) {
    case CellKind::Kind:
        return kindWord(static_cast<TriggerKind>(value));
    case CellKind::Line:
        return lineName(value);
    case CellKind::Level:
        return levelWord(static_cast<Level>(value));
    case CellKind::Repeat:
        return repeatWord(static_cast<Repeat>(value));
    default:
        return QString();
    }
}

QString numbersText(const QVariant& value)
{
    QStringList numbers;
    for (const int number : value.value<QVector<int>>())
        numbers.append(QString::number(number));
    return numbers.join(QLatin1Char(' '));
}

bool readNumber(const QString& text, QVariant& value)
{
    bool isNumber = false;
    value = text.toInt(&isNumber);
    return isNumber;
}

bool readNumbers(const QString& text, QVariant& value)
{
    static const QRegularExpression separators(QStringLiteral("[\\s,;]+"));
    QVector<int> numbers;
    for (const QString& word : text.split(separators, Qt::SkipEmptyParts)) {
        bool isNumber = false;
        numbers.append(word.toInt(&isNumber));
        if (!isNumber)
            return false;
    }
    value = QVariant::fromValue(numbers);
    return true;
}

bool readBytes(const QString& text, QVariant& value)
{
    const std::optional<QByteArray> bytes = bytesOfHex(text);
    value = bytes.value_or(QByteArray());
    return bytes.has_value();
}

bool readChoice(CellKind kind, const QString& text, QVariant& value)
{
    const QString wanted = text.section(QLatin1Char(' '), -1);
    for (const Choice& choice : choicesOf(kind)) {
        if (wordOf(kind, choice.value.toInt()).compare(wanted, Qt::CaseInsensitive) == 0) {
            value = choice.value;
            return true;
        }
    }
    return false;
}

/** A date or time that there is not is taken as it is: the check says so. */
QString normalText(CellKind kind, const QString& text)
{
    return (kind == CellKind::Time ? normalTime(text) : normalDate(text)).value_or(text);
}

QString dayNames(const QVector<int>& weekdays)
{
    QStringList names;
    for (const int weekday : weekdays)
        names.append(Weekdays::isDay(weekday)
                ? Weekdays::shortName(Weekdays::dayOf(weekday, firstWeekday()))
                : QString::number(weekday));
    return names.join(QLatin1Char(' '));
}

QString shownDate(const QString& text)
{
    const QDate date = UnitDates::dateOf(text);
    return date.isValid() ? date.toString(Qt::ISODate) : text;
}

QString shownBytes(const QByteArray& bytes)
{
    constexpr int mostBytes = 64;
    return bytes.size() <= mostBytes ? hexText(bytes)
                                     : hexText(bytes.left(mostBytes)) + QStringLiteral(" …");
}

Qt::DayOfWeek weekdayOfOne = Qt::Monday;

} // namespace

QVector<Choice> choicesOf(CellKind kind)
{
    switch (kind) {
    case CellKind::BaudRate:
        return Choices::baudRates();
    case CellKind::DataBits:
        return Choices::dataBits();
    case CellKind::StopBits:
        return Choices::stopBits();
    case CellKind::Inspection:
        return Choices::inspections();
    case CellKind::LineType:
        return Choices::ioTypes();
    case CellKind::Kind:
        return Choices::kinds();
    case CellKind::Line:
        return Choices::lines(TriggerKind::Com);
    case CellKind::Level:
        return Choices::levels();
    case CellKind::Repeat:
        return Choices::repeats();
    default:
        return {};
    }
}

Qt::DayOfWeek firstWeekday()
{
    return weekdayOfOne;
}

void setFirstWeekday(Qt::DayOfWeek day)
{
    weekdayOfOne = day;
}

QString cellText(CellKind kind, const QVariant& value)
{
    if (!value.isValid())
        return QString();
    switch (kind) {
    case CellKind::Bytes:
        return hexText(value.toByteArray());
    case CellKind::EventIds:
    case CellKind::Weekdays:
        return numbersText(value);
    case CellKind::Kind:
    case CellKind::Line:
    case CellKind::Level:
    case CellKind::Repeat:
        return wordOf(kind, value.toInt());
    default:
        return value.toString();
    }
}

bool readCell(CellKind kind, const QString& text, QVariant& value)
{
    const QString trimmed = text.trimmed();
    switch (kind) {
    case CellKind::Number:
    case CellKind::BaudRate:
    case CellKind::DataBits:
    case CellKind::StopBits:
    case CellKind::Inspection:
    case CellKind::LineType:
        return readNumber(trimmed, value);
    case CellKind::Text:
        value = text;
        return true;
    case CellKind::MaybeText:
        value = text.isEmpty() ? QVariant() : QVariant(text);
        return true;
    case CellKind::Delay:
        value = QVariant();
        return trimmed.isEmpty() || readNumber(trimmed, value);
    case CellKind::Bytes:
        return readBytes(trimmed, value);
    case CellKind::EventIds:
    case CellKind::Weekdays:
        return readNumbers(trimmed, value);
    case CellKind::Line:
    case CellKind::Level:
        value = QVariant();
        return trimmed.isEmpty() || readChoice(kind, trimmed, value);
    case CellKind::Kind:
    case CellKind::Repeat:
        return readChoice(kind, trimmed, value);
    case CellKind::MaybeDate:
        value = trimmed.isEmpty() ? QVariant() : QVariant(normalText(kind, trimmed));
        return true;
    case CellKind::Date:
    case CellKind::Time:
        value = normalText(kind, trimmed);
        return true;
    }
    Q_UNREACHABLE();
}

QString shownCell(CellKind kind, const QVariant& value)
{
    if (!value.isValid())
        return kind == CellKind::MaybeDate ? Cells::tr("For ever") : QString();
    for (const Choice& choice : choicesOf(kind)) {
        if (choice.value == value)
            return choice.text;
    }
    switch (kind) {
    case CellKind::Bytes:
        return shownBytes(value.toByteArray());
    case CellKind::Delay:
        return Cells::tr("%1 ms").arg(value.toInt());
    case CellKind::Date:
    case CellKind::MaybeDate:
        return shownDate(value.toString());
    case CellKind::Weekdays:
        return dayNames(value.value<QVector<int>>());
    default:
        return cellText(kind, value);
    }
}
