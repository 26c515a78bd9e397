// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Gives a unit one event more: write 192.168.1.10 TEXT
#include <quadrellink/unitsession.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTextStream>

namespace {

/** One more than the highest id that is taken. */
int freeId(EventModel events)
{
    int id = 1;
    for (int i = 0; i < events.size(); ++i)
        id = std::max(id, events.at(i).getEventId() + 1);
    return id;
}

UnitResult addEvent(UnitSession& session, const QString& text)
{
    UnitResult unit = session.run(UnitRequest::readAll());
    if (!unit)
        return unit;
    EventInfo event;
    event.setEventId(freeId(unit.data.events));
    event.setEventInstruction(text);
    unit.data.events.push_back(event);
    // The table is written as a whole; after a failure the unit may hold a part of it.
    return session.run(UnitRequest::writeEvents(unit.data.events));
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    const std::optional<UnitAddress> address =
        UnitAddress::fromText(application.arguments().value(1));
    if (!address) {
        out << "usage: write ADDRESS TEXT\n";
        return 2;
    }
    UnitSession session(*address);
    const UnitResult result = addEvent(session, application.arguments().value(2));
    out << (result ? QStringLiteral("written") : result.failure.text) << '\n';
    return result ? 0 : 1;
}
