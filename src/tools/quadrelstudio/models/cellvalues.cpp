// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "cellvalues.h"

#include <unitcontents.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

using namespace QuadrelDocument;

namespace {

class Cells {
    Q_DECLARE_TR_FUNCTIONS(Cells)
};

/** A value of a kind with few of them, and its words. */
struct Choice {
    int value;
    QString word;
    QString shown;
};

/** "A-1" to "D-4". */
QString lineName(int line)
{
    return lineLabel(TriggerKind::Io, line).section(QLatin1Char(' '), 1);
}

QVector<Choice> lineChoices()
{
    QVector<Choice> choices;
    for (int line = 0; line < triggerLineCount; ++line)
        choices.append({line, lineName(line), lineName(line)});
    return choices;
}

QVector<Choice> choicesOf(CellKind kind)
{
    switch (kind) {
    case CellKind::Kind:
        return {{int(TriggerKind::Com), kindWord(TriggerKind::Com), Cells::tr("Serial")},
            {int(TriggerKind::ComModbus), kindWord(TriggerKind::ComModbus), Cells::tr("Modbus")},
            {int(TriggerKind::Io), kindWord(TriggerKind::Io), Cells::tr("IO")}};
    case CellKind::Line:
        return lineChoices();
    case CellKind::Level:
        return {{int(Level::Low), levelWord(Level::Low), Cells::tr("Low")},
            {int(Level::High), levelWord(Level::High), Cells::tr("High")}};
    case CellKind::Repeat:
        return {{int(Repeat::EveryDay), repeatWord(Repeat::EveryDay), Cells::tr("Every day")},
            {int(Repeat::Weekly), repeatWord(Repeat::Weekly), Cells::tr("Weekly")},
            {int(Repeat::Once), repeatWord(Repeat::Once), Cells::tr("Once")}};
    default:
        return {};
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
        if (choice.word.compare(wanted, Qt::CaseInsensitive) == 0) {
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
        names.append(weekdayName(weekday));
    return names.join(QLatin1Char(' '));
}

QString shownDate(const QString& text)
{
    const QDate date = dateOf(text);
    return date.isValid() ? date.toString(Qt::ISODate) : text;
}

QString shownBytes(const QByteArray& bytes)
{
    constexpr int mostBytes = 64;
    return bytes.size() <= mostBytes ? hexText(bytes)
                                     : hexText(bytes.left(mostBytes)) + QStringLiteral(" …");
}

QString shownParity(int inspection)
{
    constexpr int none = 2;
    return inspection == none ? Cells::tr("None") : QString::number(inspection);
}

Qt::DayOfWeek firstWeekday = Qt::Monday;

} // namespace

void setFirstWeekday(Qt::DayOfWeek day)
{
    firstWeekday = day;
}

QString weekdayName(int weekday)
{
    constexpr int days = 7;
    if (weekday < 1 || weekday > days)
        return QString::number(weekday);
    const int day = (weekday - 1 + firstWeekday - 1) % days + 1;
    return QLocale().standaloneDayName(day, QLocale::ShortFormat);
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
    case CellKind::Repeat: {
        for (const Choice& choice : choicesOf(kind)) {
            if (choice.value == value.toInt())
                return choice.word;
        }
        return value.toString();
    }
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
        if (choice.value == value.toInt())
            return choice.shown;
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
    case CellKind::Inspection:
        return shownParity(value.toInt());
    default:
        return cellText(kind, value);
    }
}

QDate dateOf(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^20(\\d{1,2})/(\\d{1,2})/(\\d{1,2})$"));
    const QRegularExpressionMatch match = form.match(text);
    constexpr int century = 2000;
    const auto number = [&match](int group) { return match.captured(group).toInt(); };
    return match.hasMatch() ? QDate(century + number(1), number(2), number(3)) : QDate();
}

QString dateText(const QDate& date)
{
    const QString text = date.toString(QStringLiteral("yyyy/MM/dd"));
    return normalDate(text).value_or(text);
}
