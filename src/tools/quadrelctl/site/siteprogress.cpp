// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "siteprogress.h"

#include "console.h"
#include "sitereport.h"
#include "tool.h"

#include <algorithm>

using namespace QuadrelWorkspace;

namespace {

constexpr int showingInterval = 200;

} // namespace

SiteProgress::SiteProgress(int units, const QString& title, StagedRun& run)
    : m_units(units)
    , m_title(title)
{
    m_elapsed.start();
    connect(&run, &StagedRun::stageStarted, this, [](int stage, int stages) {
        if (stages > 1)
            Console::progress(Tool::tr("stage %1 of %2").arg(stage).arg(stages));
    });
    if (!Console::isTerminal())
        return;
    connect(&run, &StagedRun::started, this,
        [this](const QString& name) { m_atWork.insert(name, QString()); });
    connect(&run, &StagedRun::progressed, this, [this](const QString& name, const QString& line) {
        if (!stepOf(line).isEmpty())
            m_atWork.insert(name, stepOf(line));
    });
    connect(&m_showing, &QTimer::timeout, this, [this] { show(); });
    m_showing.start(showingInterval);
}

void SiteProgress::showEnd(const UnitReport& report)
{
    if (!Console::isTerminal())
        Console::progress(endLine(report));
}

void SiteProgress::count(const UnitReport& report)
{
    m_atWork.remove(report.name);
    ++m_finished;
    if (report.outcome == UnitOutcome::Failed)
        ++m_failed;
}

void SiteProgress::show()
{
    QStringList lines;
    for (auto unit = m_atWork.begin(); unit != m_atWork.end(); ++unit)
        lines.append(QStringLiteral("%1  %2").arg(unit.key(), unit.value()));
    lines.append(total());
    Console::showProgress(lines);
}

QString SiteProgress::total() const
{
    QString line = Tool::tr("%1 of %2 units").arg(m_finished).arg(m_units);
    if (!m_title.isEmpty())
        line = QStringLiteral("%1: %2").arg(m_title, line);
    if (m_failed > 0)
        line += Tool::tr(", %n failed", nullptr, m_failed);
    if (m_finished == 0)
        return line;
    const double seconds = std::max(1.0, static_cast<double>(m_elapsed.elapsed())) / 1000;
    const double rate = m_finished / seconds;
    return line
        + Tool::tr(", %1 units/s, %2 s left")
              .arg(QString::number(rate, 'f', 1),
                  QString::number(qRound((m_units - m_finished) / rate)));
}
