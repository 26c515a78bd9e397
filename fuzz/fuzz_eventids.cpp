// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "eventidlist.h"
#include "eventitem.h"
#include "eventmodel.h"
#include "fuzzinput.h"
#include "fuzzsetup.h"
#include "modelmanagement.h"
#include "packagetimetrigger.h"

#include <cstring>

// The texts come from files and from what a user types.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const bool utf16 = (input.byte() & 1) != 0;
    const QByteArray bytes = input.rest();
    QString text = QString::fromUtf8(bytes);
    if (utf16) {
        text.resize(bytes.size() / 2);
        std::memcpy(text.data(), bytes.constData(), static_cast<std::size_t>(text.size()) * 2);
    }

    require(EventIdList::fromText(text).size() == text.count(QLatin1Char(';')) + 1,
        "each item has one byte");
    EventItem::id(QStringRef(&text));
    PackageTimeTrigger::weeklyTextToBits(text);

    ModelManagement models;
    EventInfo event;
    event.setEventId(7);
    event.setEventName(QStringLiteral("seven"));
    EventModel events;
    events.push_back(event);
    models.setEventModel(events);
    models.getEventNamefromId(text);
    return 0;
}
