// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "triggerblock.h"

#include "descriptiontext.h"
#include "recordblock.h"
#include "replyframe.h"

void TriggerBlock::storeHead(RecordBlock& block, RecordClass recordClass)
{
    const auto [first, second, third] = recordHead;
    block.storeBytes(bodyOffset, {first, second, third, recordClass.first, recordClass.second});
}

RecordClass TriggerBlock::recordClassOf(const ReplyFrame& frame)
{
    return {frame.payloadByte(recordClassOffset), frame.payloadByte(recordClassOffset + 1)};
}

TriggerBlock::TriggerBlock(const ReplyFrame& frame, int offset)
    : m_frame(frame)
    , m_eventIdsOffset(offset + 1)
    , m_eventCount(frame.payloadByte(offset))
    , m_descriptionOffset(m_eventIdsOffset + m_eventCount + 1)
    , m_descriptionLength(frame.payloadByte(m_descriptionOffset - 1))
{
}

TriggerBlock::Fault TriggerBlock::check() const
{
    if (m_eventCount > maximumEventCount)
        return Fault::TooManyEvents;
    if (m_descriptionLength > maximumDescriptionLength)
        return Fault::DescriptionTooLong;
    return Fault::None;
}

bool TriggerBlock::accept(const QMetaObject& context, const FaultTexts& texts, QString& error) const
{
    switch (check()) {
    case Fault::None:
        return true;
    case Fault::TooManyEvents:
        error = context.tr(texts.tooManyEvents, nullptr);
        return false;
    case Fault::DescriptionTooLong:
        error = context.tr(texts.descriptionTooLong, nullptr);
        return false;
    }
    Q_UNREACHABLE();
}

QString TriggerBlock::events(const QMetaObject& context, const EventWords& words) const
{
    if (m_eventCount == 0)
        return {};
    const QString separator = m_eventCount > 1 ? context.tr(words.separator, nullptr) : QString();
    return EventIdList::read(m_frame, m_eventIdsOffset, m_eventCount,
        {context.tr(words.opening, nullptr), context.tr(words.closing, nullptr), separator});
}

QString TriggerBlock::description() const
{
    return DescriptionText::read(m_frame, m_descriptionOffset, m_descriptionLength);
}

void TriggerBlock::store(
    RecordBlock& block, int offset, const QByteArray& eventIds, const QString& description)
{
    block.storeByte(offset, eventIds.size());
    block.storeBytes(offset + 1, eventIds);
    DescriptionText::store(
        block, offset + 1 + eventIds.size(), DescriptionText::withNuls(description));
}
