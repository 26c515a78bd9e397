// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "simulatedsite.h"

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtTest/QtTest>

namespace {

const QString listening = QStringLiteral("listening on ");

} // namespace

SimulatedSite::SimulatedSite(int count, const QStringList& simulatorOptions, int firstSerial)
    : m_count(count)
    , m_firstSerial(firstSerial)
{
    switchOn(simulatorOptions);
    QByteArray inventory = "# The site of a test.\nunits:\n";
    for (int unit = 1; unit <= count; ++unit)
        inventory +=
            QStringLiteral("  - name: u-%1\n    address: %2\n    serial: %3\n"
                           "    model: 0x7209\n%4    document: u-%1.yaml\n")
                .arg(QString::number(unit), address(unit), QString::number(firstSerial + unit - 1),
                    unit % 2 == 1 ? QStringLiteral("    tags: [odd]\n") : QString())
                .toUtf8();
    writeInventory(inventory);
}

void SimulatedSite::switchOn(const QStringList& simulatorOptions)
{
    const QString memory = tool.path(QStringLiteral("memory"));
    QDir().mkpath(memory);
    const QStringList former = m_addresses;
    m_simulator = std::make_unique<Simulator>(
        QStringList{QStringLiteral("--sample"), QStringLiteral("--count"), QString::number(m_count),
            QStringLiteral("--port"), QStringLiteral("0"), QStringLiteral("--memory"), memory,
            QStringLiteral("--serial"), QString::number(m_firstSerial)}
        + simulatorOptions);
    m_addresses.clear();
    for (int unit = 1; unit <= m_count; ++unit) {
        const QString line = QString::fromUtf8(m_simulator->waitForLine(listening.toUtf8()));
        if (line.isEmpty())
            qFatal("the simulated units do not start: %s", qPrintable(m_simulator->errors()));
        m_addresses.append(QStringLiteral("tcp://") + line.mid(listening.size()));
    }
    QByteArray text = inventory();
    for (int unit = 0; unit < former.size(); ++unit)
        text.replace(former.at(unit).toUtf8() + '\n', m_addresses.at(unit).toUtf8() + '\n');
    if (!former.isEmpty())
        writeInventory(text);
}

QString SimulatedSite::document(int unit) const
{
    return tool.path(QStringLiteral("u-%1.yaml").arg(unit));
}

QByteArray SimulatedSite::inventory() const
{
    return ControlTool::contentsOf(tool.path(QStringLiteral("site.yaml")));
}

QStringList SimulatedSite::words(const char* line) const
{
    QStringList words = QString::fromUtf8(line).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    for (QString& word : words) {
        word.replace(QStringLiteral("DIR"), tool.path(QString()));
        if (word.startsWith(QLatin1Char('@')))
            word = address(word.midRef(1).toInt());
    }
    return words;
}

QStringList SimulatedSite::arguments(const char* line) const
{
    return QStringList{QStringLiteral("site"), QStringLiteral("--inventory"),
               tool.path(QStringLiteral("site.yaml"))}
    + words(line);
}

ToolResult SimulatedSite::run(const char* line)
{
    return tool.run(arguments(line));
}

ToolResult SimulatedSite::control(const char* line)
{
    return tool.run(words(line));
}

QJsonObject SimulatedSite::runJson(const char* line)
{
    return QJsonDocument::fromJson(run(line).output.toUtf8()).object();
}

void SimulatedSite::saveDocuments()
{
    for (int unit = 1; unit <= m_count; ++unit) {
        const ToolResult saved = tool.run(
            {QStringLiteral("save"), QStringLiteral("--unit"), address(unit), document(unit)});
        if (saved.exitCode != 0)
            qFatal("u-%d is not saved: %s", unit, qPrintable(saved.errors));
    }
}

QString SimulatedSite::masked(QString text) const
{
    for (int unit = 1; unit <= m_count; ++unit)
        text.replace(address(unit), QStringLiteral("@%1").arg(unit));
    return text.replace(tool.path(QString()), QStringLiteral("DIR"));
}
