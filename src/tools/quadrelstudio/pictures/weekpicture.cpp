// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "weekpicture.h"

#include "picturetools.h"
#include "triggerwords.h"
#include "weekview.h"

#include "editors/eventnames.h"
#include "editors/unitdates.h"

#include <QtCore/QEvent>
#include <QtCore/QTimerEvent>
#include <QtWidgets/QDateEdit>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace QuadrelDocument;

namespace {

constexpr int minute = 60 * 1000;
constexpr int silentRows = 4;
constexpr int indexRole = Qt::UserRole;

} // namespace

WeekPicture::WeekPicture(QWidget* parent)
    : QWidget(parent)
{
    makeWidgets();
    layOut();
    connectWidgets();
    retranslate();
    listSilences();
}

void WeekPicture::setContents(const Contents& contents)
{
    m_triggers = contents.timeTriggers.value_or(QVector<TimeTrigger>());
    m_view->setContents(contents);
}

void WeekPicture::setFirstWeekday(Qt::DayOfWeek day)
{
    m_view->setFirstWeekday(day);
}

void WeekPicture::setDate(const QDate& date)
{
    m_date->setDate(date);
}

void WeekPicture::setNow(const QDateTime& now)
{
    m_hasOwnClock = false;
    m_minute.stop();
    m_view->setNow(now);
}

void WeekPicture::makeWidgets()
{
    m_view = new WeekView(this);
    m_tools = new PictureTools(m_view, this);
    m_date = new QDateEdit(m_view->date(), this);
    m_date->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    m_date->setCalendarPopup(true);
    m_date->setDateRange({UnitDates::firstYear, 1, 1}, {UnitDates::lastYear, 12, 31});
    m_before = new QPushButton(this);
    m_today = new QPushButton(this);
    m_after = new QPushButton(this);
    m_silentTitle = new QLabel(this);
    m_silent = new QListWidget(this);
    m_silent->setMaximumHeight(silentRows * (fontMetrics().lineSpacing() + 4));
    m_silentTitle->setBuddy(m_silent);
}

void WeekPicture::layOut()
{
    auto* top = new QHBoxLayout;
    top->addWidget(m_before);
    top->addWidget(m_today);
    top->addWidget(m_after);
    top->addWidget(m_date);
    top->addStretch();
    top->addWidget(m_tools);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_silentTitle);
    layout->addWidget(m_silent);
    const QVector<QWidget*> order{m_before, m_today, m_after, m_date, m_tools, m_view, m_silent};
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));
}

void WeekPicture::connectWidgets()
{
    const auto move = [this](int days) { m_date->setDate(m_date->date().addDays(days)); };
    connect(m_before, &QPushButton::clicked, this, [move] { move(-WeekPlan::days); });
    connect(m_after, &QPushButton::clicked, this, [move] { move(WeekPlan::days); });
    connect(
        m_today, &QPushButton::clicked, this, [this] { m_date->setDate(QDate::currentDate()); });
    connect(m_date, &QDateEdit::dateChanged, m_view, &WeekView::setDate);
    connect(m_view, &WeekView::planChanged, this, &WeekPicture::listSilences);
    connect(m_view, &PictureView::activated, this, [this](int firing) {
        emit timeTriggerActivated(m_view->plan().firings.at(firing).trigger);
    });
    const auto activate = [this](const QListWidgetItem* item) {
        emit timeTriggerActivated(item->data(indexRole).toInt());
    };
    connect(m_silent, &QListWidget::itemActivated, this, activate);
    connect(m_tools, &PictureTools::failed, this, &WeekPicture::failed);
}

void WeekPicture::retranslate()
{
    m_before->setText(tr("&Previous week"));
    m_today->setText(tr("&Today"));
    m_after->setText(tr("&Next week"));
    m_date->setAccessibleName(tr("Date to look at"));
    m_silent->setAccessibleName(tr("Time triggers that do not fire in this week"));
    for (QPushButton* button : {m_before, m_today, m_after})
        button->setAccessibleName(button->text().remove(QLatin1Char('&')));
}

void WeekPicture::listSilences()
{
    const QVector<WeekPlan::Silence>& silences = m_view->plan().silences;
    m_silent->clear();
    for (const WeekPlan::Silence& silence : silences) {
        const TimeTrigger& trigger = m_triggers.at(silence.trigger);
        const QString title = TriggerWords::title(trigger, m_view->names());
        auto* item = new QListWidgetItem(
            QStringLiteral("%1 %2 – %3")
                .arg(trigger.time, title, TriggerWords::reason(silence.reason, trigger)));
        item->setData(indexRole, silence.trigger);
        m_silent->addItem(item);
    }
    m_silentTitle->setText(tr("%n time trigger(s) not in this &week:", "", silences.size()));
    m_silentTitle->setVisible(!silences.isEmpty());
    m_silent->setVisible(!silences.isEmpty());
}

void WeekPicture::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    m_tools->retranslate();
    listSilences();
}

void WeekPicture::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!m_hasOwnClock)
        return;
    m_view->setNow(QDateTime::currentDateTime());
    m_minute.start(minute, Qt::VeryCoarseTimer, this);
}

void WeekPicture::hideEvent(QHideEvent* event)
{
    m_minute.stop();
    QWidget::hideEvent(event);
}

void WeekPicture::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == m_minute.timerId())
        m_view->setNow(QDateTime::currentDateTime());
    else
        QWidget::timerEvent(event);
}
