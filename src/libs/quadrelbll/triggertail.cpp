#include "triggertail.h"

#include "descriptiontext.h"
#include "recordblock.h"
#include "replyframe.h"

TriggerTail::TriggerTail(const ReplyFrame& frame, int offset)
    : m_frame(frame)
    , m_eventIdsOffset(offset + 1)
    , m_eventCount(frame.payloadByte(offset))
    , m_descriptionOffset(m_eventIdsOffset + m_eventCount + 1)
    , m_descriptionLength(frame.payloadByte(m_descriptionOffset - 1))
{
}

TriggerTail::Fault TriggerTail::check() const
{
    if (m_eventCount > maximumEventCount)
        return Fault::TooManyEvents;
    if (m_descriptionLength > maximumDescriptionLength)
        return Fault::DescriptionTooLong;
    return Fault::None;
}

int TriggerTail::eventCount() const
{
    return m_eventCount;
}

QString TriggerTail::events(const EventIdList::Words& words) const
{
    return EventIdList::read(m_frame, m_eventIdsOffset, m_eventCount, words);
}

QString TriggerTail::description() const
{
    return DescriptionText::read(m_frame, m_descriptionOffset, m_descriptionLength);
}

void TriggerTail::store(
    RecordBlock& block, int offset, const QByteArray& eventIds, const QString& description)
{
    block.storeByte(offset, eventIds.size());
    block.storeBytes(offset + 1, eventIds);
    DescriptionText::store(
        block, offset + 1 + eventIds.size(), DescriptionText::withNuls(description));
}
