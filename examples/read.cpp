// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Reads a unit and prints its events: read 192.168.1.10
#include <quadrellink/unitsession.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTextStream>

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    const QString where = application.arguments().value(1, QStringLiteral("127.0.0.1"));
    UnitSession session(UnitAddress::fromText(where).value_or(UnitAddress()));
    UnitResult result = session.run(UnitRequest::readAll());
    if (!result) {
        out << result.failure.text << '\n';
        return 1;
    }
    for (int i = 0; i < result.data.events.size(); ++i) {
        EventInfo event = result.data.events.at(i);
        out << "event " << event.getEventId() << ": " << event.getEventInstruction() << '\n';
    }
}
