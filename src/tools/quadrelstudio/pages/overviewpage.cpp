// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "overviewpage.h"

#include "dialogs/networkdialog.h"
#include "dialogs/question.h"
#include "workspace/unitworkspace.h"

#include <clocktime.h>
#include <imagechecks.h>

#include <QtCore/QEvent>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <cstdlib>

using namespace QuadrelDocument;

namespace {

template <class List> int sizeOf(const std::optional<List>& list)
{
    return list ? list->size() : 0;
}

/** How far the unit's clock is from this machine's. */
QString offsetText(qint64 seconds)
{
    if (seconds == 0)
        return OverviewPage::tr("the same as this machine's");
    constexpr qint64 secondsPerDay = 86400;
    const qint64 amount = std::abs(seconds);
    const int days = static_cast<int>(amount / secondsPerDay);
    const QString time = QTime(0, 0)
                             .addSecs(static_cast<int>(amount % secondsPerDay))
                             .toString(QStringLiteral("hh:mm:ss"));
    const QString length =
        days == 0 ? time : OverviewPage::tr("%n day(s) %1", nullptr, days).arg(time);
    return (seconds > 0 ? OverviewPage::tr("%1 ahead of this machine's")
                        : OverviewPage::tr("%1 behind this machine's"))
        .arg(length);
}

void setRow(QLabel* value, const QString& title)
{
    auto* form = qobject_cast<QFormLayout*>(value->parentWidget()->layout());
    auto* label = qobject_cast<QLabel*>(form->labelForField(value));
    label->setText(title);
    value->setAccessibleName(title);
}

void setBar(QProgressBar* bar, const QString& title)
{
    auto* form = qobject_cast<QFormLayout*>(bar->parentWidget()->layout());
    qobject_cast<QLabel*>(form->labelForField(bar))->setText(title);
    bar->setAccessibleName(title);
}

} // namespace

OverviewPage::OverviewPage(UnitWorkspace& workspace, QWidget* parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_hint(new QLabel(this))
    , m_deviceBox(new QGroupBox(this))
    , m_countBox(new QGroupBox(this))
    , m_clockBox(new QGroupBox(this))
    , m_unitBox(new QGroupBox(this))
{
    auto* device = new QFormLayout(m_deviceBox);
    for (QLabel** line :
        {&m_model, &m_serialNumber, &m_version, &m_address, &m_mask, &m_gateway, &m_dhcp, &m_parts})
        *line = addLine(device);
    auto* counts = new QFormLayout(m_countBox);
    m_events = addBar(counts, Limit::events);
    m_entries = addBar(counts, Limit::tableEntries);

    auto* clock = new QHBoxLayout(m_clockBox);
    m_clock = new QLabel(m_clockBox);
    m_clock->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    clock->addWidget(m_clock, 1);
    m_readClock = addButton(clock, &OverviewPage::readClock);
    m_setClock = addButton(clock, &OverviewPage::askToSetClock);
    auto* unit = new QHBoxLayout(m_unitBox);
    m_network = addButton(unit, &OverviewPage::askForNetwork);
    m_restart = addButton(unit, &OverviewPage::askToRestart);
    m_restartWithDefault = addButton(unit, &OverviewPage::askToRestartWithDefault);
    m_remark = addButton(unit, &OverviewPage::askForRemark);
    unit->addStretch();

    m_hint->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_hint);
    for (QGroupBox* box : {m_deviceBox, m_countBox, m_clockBox, m_unitBox})
        layout->addWidget(box);
    layout->addStretch();

    connect(&workspace.document(), &EditableContents::changed, this, &OverviewPage::update);
    connect(&workspace, &UnitWorkspace::clockChanged, this, &OverviewPage::takeClock);
    connect(&workspace, &UnitWorkspace::stateChanged, this, &OverviewPage::updateButtons);
    connect(&workspace, &UnitWorkspace::started, this, &OverviewPage::updateButtons);
    retranslate();
    takeClock();
}

QLabel* OverviewPage::addLine(QFormLayout* form)
{
    auto* line = new QLabel(form->parentWidget());
    line->setTextFormat(Qt::PlainText);
    line->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    form->addRow(new QLabel(form->parentWidget()), line);
    return line;
}

QProgressBar* OverviewPage::addBar(QFormLayout* form, int limit)
{
    auto* bar = new QProgressBar(form->parentWidget());
    bar->setMaximum(limit);
    bar->setMaximumWidth(fontMetrics().averageCharWidth() * 60);
    form->addRow(new QLabel(form->parentWidget()), bar);
    return bar;
}

QPushButton* OverviewPage::addButton(QLayout* layout, void (OverviewPage::*act)())
{
    auto* button = new QPushButton(layout->parentWidget());
    connect(button, &QPushButton::clicked, this, act);
    layout->addWidget(button);
    return button;
}

void OverviewPage::readClock()
{
    m_workspace.readClock();
}

void OverviewPage::askToSetClock()
{
    ask(this, tr("Set the clock"), tr("Set the unit's clock to the time of this machine?"),
        tr("Set"), [this] { m_workspace.setClock(QDateTime::currentDateTime()); });
}

void OverviewPage::askForNetwork()
{
    const Device device = m_workspace.contents().device.value_or(Device());
    auto* dialog = new NetworkDialog(device, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        m_workspace.setNetwork(dialog->ip(), dialog->mask(), dialog->gateway());
    });
    dialog->open();
}

void OverviewPage::askToRestart()
{
    ask(this, tr("Restart"), tr("Restart the unit? It keeps its address."), tr("Restart"),
        [this] { m_workspace.resetUnit(true); });
}

void OverviewPage::askToRestartWithDefault()
{
    const QString ip = m_workspace.contents().device.value_or(Device()).ip;
    ask(this, tr("Restart with default address"),
        tr("The unit restarts, and goes back from %1 to its default address. Restart it?").arg(ip),
        tr("Restart"), [this] { m_workspace.resetUnit(false); });
}

void OverviewPage::askForRemark()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Streamed image with the remark"));
    if (path.isEmpty())
        return;
    QString error;
    const std::optional<QByteArray> image = QuadrelWorkspace::readImage(path, error);
    if (image)
        error = QuadrelWorkspace::imageDoubt(path, *image);
    if (!error.isEmpty()) {
        QMessageBox::warning(this, tr("Remark"), error);
        return;
    }
    ask(this, tr("Remark"), tr("Write the remark of %1 to %2?").arg(path, m_workspace.title()),
        tr("Write"), [this, image] { m_workspace.writeRemark(*image); });
}

void OverviewPage::takeClock()
{
    const QDateTime time = QuadrelWorkspace::clockTime(m_workspace.clock());
    m_offset = m_workspace.clockTaken().secsTo(time);
    updateClock();
    updateButtons();
}

void OverviewPage::updateClock()
{
    const QString clock = m_workspace.clock();
    if (clock.isEmpty())
        m_clock->setText(tr("not read yet"));
    else if (QuadrelWorkspace::clockTime(clock).isValid())
        m_clock->setText(QStringLiteral("%1  (%2)").arg(clock, offsetText(m_offset)));
    else
        m_clock->setText(QStringLiteral("%1  (%2)").arg(clock, tr("not a real time")));
}

void OverviewPage::update()
{
    const Contents& contents = m_workspace.contents();
    const bool hasDevice = contents.device.has_value();
    m_hint->setVisible(!hasDevice);
    m_deviceBox->setVisible(hasDevice);
    const Device device = contents.device.value_or(Device());
    m_model->setText(modelText(device.modelId));
    m_serialNumber->setText(QString::number(device.serialNumber));
    m_version->setText(device.version);
    m_address->setText(device.ip);
    m_mask->setText(device.mask);
    m_gateway->setText(device.gateway);
    m_dhcp->setText(device.dhcp ? tr("by DHCP") : tr("fixed"));
    m_parts->setText(tr("%1 serial ports, %2 IO lines, %3 relays, %4 infrared ports")
                         .arg(device.serialPortCount)
                         .arg(device.ioLineCount)
                         .arg(device.relayCount)
                         .arg(device.infraredPortCount));
    const int events = sizeOf(contents.events);
    m_events->setValue(qMin(events, Limit::events));
    m_events->setFormat(tr("%1 of %2").arg(events).arg(Limit::events));
    const int entries = sizeOf(contents.triggers) + sizeOf(contents.timeTriggers);
    m_entries->setValue(qMin(entries, Limit::tableEntries));
    m_entries->setFormat(tr("%1 of %2").arg(entries).arg(Limit::tableEntries));
    updateClock();
    updateButtons();
}

void OverviewPage::updateButtons()
{
    const bool hasUnit = m_workspace.address().has_value();
    m_clockBox->setVisible(hasUnit);
    m_unitBox->setVisible(hasUnit);
    for (QPushButton* button :
        {m_readClock, m_setClock, m_network, m_restart, m_restartWithDefault, m_remark})
        button->setEnabled(hasUnit && !m_workspace.isBusy());
}

void OverviewPage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void OverviewPage::retranslate()
{
    m_hint->setText(tr("These contents have no device. Read a unit to see it here."));
    m_deviceBox->setTitle(tr("Device"));
    m_countBox->setTitle(tr("Room on the unit"));
    m_clockBox->setTitle(tr("Clock"));
    m_unitBox->setTitle(tr("Unit"));
    setRow(m_model, tr("Model"));
    setRow(m_serialNumber, tr("Serial number"));
    setRow(m_version, tr("Version"));
    setRow(m_address, tr("Address"));
    setRow(m_mask, tr("Mask"));
    setRow(m_gateway, tr("Gateway"));
    setRow(m_dhcp, tr("Address is"));
    setRow(m_parts, tr("Parts"));
    setBar(m_events, tr("Events"));
    setBar(m_entries, tr("Triggers and time triggers"));
    m_clock->setAccessibleName(tr("Clock"));
    m_readClock->setText(tr("Read"));
    m_readClock->setAccessibleName(tr("Read the clock"));
    m_setClock->setText(tr("Set..."));
    m_setClock->setAccessibleName(tr("Set the clock"));
    m_network->setText(tr("Network address..."));
    m_restart->setText(tr("Restart..."));
    m_restartWithDefault->setText(tr("Restart with default address..."));
    m_remark->setText(tr("Remark..."));
    update();
}
