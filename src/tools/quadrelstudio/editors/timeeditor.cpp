// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "timeeditor.h"

#include "unitdates.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

TimeEditor::TimeEditor(QWidget* parent)
    : CellEditor(parent)
    , m_time(new QTimeEdit(this))
    , m_note(new QLabel(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_time, 1);
    layout->addWidget(m_note);
    m_time->setDisplayFormat(QStringLiteral("HH:mm"));
    m_time->setAccessibleName(tr("Time of day"));
    m_note->setTextFormat(Qt::PlainText);
    m_note->hide();
    connect(m_time, &QTimeEdit::timeChanged, this, &TimeEditor::touch);
    setTabStops({m_time});
}

QVariant TimeEditor::value() const
{
    return m_isTouched ? UnitDates::textOf(m_time->time()) : m_given;
}

void TimeEditor::setValue(const QVariant& value)
{
    m_given = value.toString();
    m_isTouched = false;
    const QTime time = UnitDates::timeOf(m_given);
    const QSignalBlocker quiet(m_time);
    m_time->setTime(time.isValid() ? time : QTime(0, 0));
    m_note->setText(time.isValid() ? QString() : tr("not “%1”").arg(m_given));
    m_note->setVisible(!time.isValid() && !m_given.isEmpty());
    setAccessibleDescription(m_note->text());
}

void TimeEditor::touch()
{
    m_isTouched = true;
    m_note->hide();
    emit edited();
}
