// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitfaults.h"

#include "quadrelframe.h"

#include <QtCore/QRegularExpression>

namespace QuadrelUnit {

namespace {

// In the order of FaultKind.
const char* const names[] = {"drop", "delay", "duplicate", "truncate", "corrupt", "short",
    "wrong-address", "wrong-length", "wrong-label", "cut", "close", "lose-request", "hang"};

QByteArray firstHalf(const QByteArray& frame)
{
    return frame.left(frame.size() / 2);
}

} // namespace

QString UnitFault::name() const
{
    return QLatin1String(names[static_cast<int>(kind)]);
}

UnitFaults::UnitFaults(quint32 seed)
    : m_random(seed)
{
}

QStringList UnitFaults::kindNames()
{
    QStringList list;
    for (const char* name : names)
        list.append(QLatin1String(name));
    return list;
}

void UnitFaults::addNth(FaultKind kind, quint64 reply, int delay)
{
    m_rules.append({{kind, delay}, reply, 0.0});
}

void UnitFaults::addShare(FaultKind kind, double share, int delay)
{
    m_rules.append({{kind, delay}, 0, share});
}

bool UnitFaults::add(const QString& text, QString* error)
{
    static const QRegularExpression form(
        QStringLiteral("^([a-z-]+)(?::(\\d{1,9}))?(?:@(\\d{1,18})|%(\\d{1,3}(?:\\.\\d{1,9})?))$"));
    const QRegularExpressionMatch match = form.match(text);
    const int kindIndex = kindNames().indexOf(match.captured(1));
    if (!match.hasMatch() || kindIndex < 0) {
        *error = QStringLiteral(
            "\"%1\" is not a fault: write KIND@N or KIND%PERCENT, KIND being one of %2")
                     .arg(text, kindNames().join(QLatin1String(", ")));
        return false;
    }
    const auto kind = static_cast<FaultKind>(kindIndex);
    const QString delayText = match.captured(2);
    if (!delayText.isEmpty() && kind != FaultKind::Delay) {
        *error = QStringLiteral("\"%1\": only a delay takes milliseconds").arg(text);
        return false;
    }
    const int delay = delayText.isEmpty() ? defaultDelay : delayText.toInt();
    const QString percent = match.captured(4);
    if (percent.toDouble() > 100) {
        *error = QStringLiteral("\"%1\": a share is at most 100 percent").arg(text);
        return false;
    }
    if (!percent.isEmpty()) {
        addShare(kind, percent.toDouble() / 100, delay);
        return true;
    }
    const quint64 reply = match.captured(3).toULongLong();
    if (reply == 0) {
        *error = QStringLiteral("\"%1\": replies are counted from 1").arg(text);
        return false;
    }
    addNth(kind, reply, delay);
    return true;
}

void UnitFaults::clear()
{
    m_rules.clear();
    m_hang.reset();
}

std::optional<UnitFault> UnitFaults::next()
{
    ++m_replies;
    const std::optional<UnitFault> fault = strikingFault();
    if (!m_hang && fault && fault->kind == FaultKind::Hang)
        m_hang = fault;
    return m_hang ? m_hang : fault;
}

std::optional<UnitFault> UnitFaults::strikingFault()
{
    std::optional<UnitFault> striking;
    for (const Rule& rule : qAsConst(m_rules)) {
        // Every share draws for every reply, so that one rule does not shift another one's luck.
        const bool strikes =
            rule.reply > 0 ? rule.reply == m_replies : m_random.generateDouble() < rule.share;
        if (strikes && !striking)
            striking = rule.fault;
    }
    return striking;
}

UnitDelivery UnitFaults::deliver(const UnitFrame& reply, const std::optional<UnitFault>& fault)
{
    if (fault)
        return faulty(reply, *fault);
    UnitDelivery delivery;
    delivery.pieces.append(reply.encode());
    return delivery;
}

UnitDelivery UnitFaults::faulty(const UnitFrame& reply, const UnitFault& fault)
{
    UnitFrame frame = reply;
    UnitDelivery delivery;
    delivery.fault = fault.name();
    switch (fault.kind) {
    case FaultKind::Drop:
    case FaultKind::LoseRequest:
    case FaultKind::Hang:
        return delivery;
    case FaultKind::Close:
        delivery.closes = true;
        return delivery;
    case FaultKind::Cut:
        delivery.closes = true;
        delivery.pieces.append(firstHalf(frame.encode()));
        return delivery;
    case FaultKind::Truncate:
        delivery.pieces.append(firstHalf(frame.encode()));
        return delivery;
    case FaultKind::Corrupt:
        delivery.pieces.append(corrupted(frame.encode()));
        return delivery;
    case FaultKind::Duplicate:
        delivery.pieces.append(frame.encode());
        break;
    case FaultKind::Delay:
        delivery.delay = fault.delay;
        break;
    case FaultKind::Short:
        frame.payload.clear();
        break;
    case FaultKind::WrongAddress:
        frame.address += 1;
        break;
    case FaultKind::WrongLength:
        frame.dataLength = static_cast<quint16>(frame.dataLength + 1);
        break;
    case FaultKind::WrongLabel:
        frame.label = static_cast<quint8>(frame.label + 1);
        break;
    }
    delivery.pieces.append(frame.encode());
    return delivery;
}

// One byte after the head is inverted: the frame keeps its bounds and only its CRC is wrong.
QByteArray UnitFaults::corrupted(QByteArray frame)
{
    const int position =
        m_random.bounded(QuadrelFrame::payloadOffset, static_cast<int>(frame.size()));
    frame[position] = static_cast<char>(~frame.at(position));
    return frame;
}

} // namespace QuadrelUnit
