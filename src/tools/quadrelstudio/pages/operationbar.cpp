// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "operationbar.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QToolButton>

using QuadrelWorkspace::WorkResult;
using Operation = UnitWorkspace::Operation;

namespace {

constexpr int progressSteps = 1000;

QString beginning(Operation operation)
{
    switch (operation) {
    case Operation::Read:
    case Operation::Prepare:
        return OperationBar::tr("Reading the unit");
    case Operation::Write:
        return OperationBar::tr("Writing to the unit");
    case Operation::ReadClock:
        return OperationBar::tr("Reading the clock");
    case Operation::SetClock:
        return OperationBar::tr("Setting the clock");
    case Operation::SetNetwork:
        return OperationBar::tr("Setting the network address");
    case Operation::Reset:
        return OperationBar::tr("Restarting the unit");
    case Operation::WriteRemark:
        return OperationBar::tr("Writing the remark");
    case Operation::Upgrade:
        return OperationBar::tr("Writing the firmware");
    }
    Q_UNREACHABLE();
}

/** Empty for what can be seen anyway. */
QString success(Operation operation, const WorkResult& result)
{
    switch (operation) {
    case Operation::Write:
        return result.backup
            ? OperationBar::tr("Written and read back. What the unit held before is in %1.")
                  .arg(result.backup->path)
            : OperationBar::tr("Written and read back.");
    case Operation::SetClock:
        return OperationBar::tr("The clock was set.");
    case Operation::SetNetwork:
        return OperationBar::tr("The unit has taken the new address.");
    case Operation::Reset:
        return OperationBar::tr("The unit restarts.");
    case Operation::WriteRemark:
        return OperationBar::tr("The remark was written.");
    case Operation::Upgrade:
        return OperationBar::tr("The unit is back with its new firmware.");
    default:
        return QString();
    }
}

/** Minutes and seconds. */
QString timeText(qint64 milliseconds)
{
    constexpr qint64 millisecondsPerSecond = 1000;
    constexpr qint64 secondsPerMinute = 60;
    const qint64 seconds = (milliseconds + millisecondsPerSecond - 1) / millisecondsPerSecond;
    return QStringLiteral("%1:%2")
        .arg(seconds / secondsPerMinute)
        .arg(seconds % secondsPerMinute, 2, 10, QLatin1Char('0'));
}

} // namespace

OperationBar::OperationBar(UnitWorkspace& workspace, QWidget* parent)
    : QFrame(parent)
    , m_workspace(workspace)
    , m_text(new QLabel(this))
    , m_progress(new QProgressBar(this))
    , m_remaining(new QLabel(this))
    , m_cancel(new QToolButton(this))
    , m_dismiss(new QToolButton(this))
{
    setFrameShape(StyledPanel);
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_progress->setRange(0, progressSteps);
    m_progress->setTextVisible(false);
    m_progress->setMaximumWidth(fontMetrics().averageCharWidth() * 32);
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_progress);
    layout->addWidget(m_remaining);
    layout->addWidget(m_cancel, 0, Qt::AlignTop);
    layout->addWidget(m_dismiss, 0, Qt::AlignTop);

    connect(m_cancel, &QToolButton::clicked, &workspace, &UnitWorkspace::cancel);
    connect(m_dismiss, &QToolButton::clicked, this, &QWidget::hide);
    connect(&workspace, &UnitWorkspace::started, this, &OperationBar::begin);
    connect(&workspace, &UnitWorkspace::progressed, this, &OperationBar::report);
    connect(&workspace, &UnitWorkspace::finished, this, &OperationBar::end);
    retranslate();
    hide();
}

void OperationBar::begin(Operation operation)
{
    m_text->setText(beginning(operation));
    m_progress->setValue(0);
    m_remaining->clear();
    for (QWidget* widget : {static_cast<QWidget*>(m_progress), static_cast<QWidget*>(m_remaining),
             static_cast<QWidget*>(m_cancel)})
        widget->show();
    m_cancel->setEnabled(true);
    m_dismiss->hide();
    show();
}

void OperationBar::report(const QString& step, double fraction, qint64 remaining)
{
    m_text->setText(step);
    m_progress->setValue(static_cast<int>(fraction * progressSteps));
    m_remaining->setText(remaining < 0 ? QString() : tr("%1 left").arg(timeText(remaining)));
}

void OperationBar::end(Operation operation, const WorkResult& result)
{
    const QString text = result ? success(operation, result) : result.failure.text();
    if (text.isEmpty())
        hide();
    else
        showMessage(text);
}

void OperationBar::showMessage(const QString& text)
{
    m_text->setText(text);
    for (QWidget* widget : {static_cast<QWidget*>(m_progress), static_cast<QWidget*>(m_remaining),
             static_cast<QWidget*>(m_cancel)})
        widget->hide();
    m_dismiss->show();
    show();
}

void OperationBar::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QFrame::changeEvent(event);
}

void OperationBar::retranslate()
{
    m_cancel->setText(tr("Cancel"));
    m_dismiss->setText(tr("Dismiss"));
    m_text->setAccessibleName(tr("State of the work"));
    m_progress->setAccessibleName(tr("Progress"));
}
