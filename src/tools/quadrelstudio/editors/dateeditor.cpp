// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "dateeditor.h"

#include "unitdates.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDateEdit>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

DateEditor::DateEditor(Kind kind, QWidget* parent)
    : CellEditor(parent)
    , m_date(new QDateEdit(this))
    , m_forever(new QCheckBox(tr("for&ever"), this))
    , m_note(new QLabel(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_date, 1);
    layout->addWidget(m_note);
    layout->addWidget(m_forever);
    m_date->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    m_date->setCalendarPopup(true);
    m_date->setDateRange({UnitDates::firstYear, 1, 1}, {UnitDates::lastYear, 12, 31});
    m_date->setDate(QDate::currentDate());
    m_date->setAccessibleName(tr("Date"));
    m_note->setTextFormat(Qt::PlainText);
    m_note->hide();
    m_forever->setAccessibleName(tr("Forever"));
    m_forever->setVisible(kind == DayOrForever);
    connect(m_date, &QDateEdit::dateChanged, this, &DateEditor::touch);
    connect(m_forever, &QCheckBox::toggled, this, [this](bool isForever) {
        setForever(isForever);
        touch();
    });
    if (kind == DayOrForever)
        setTabStops({m_date, m_forever});
    else
        setTabStops({m_date});
}

QVariant DateEditor::value() const
{
    if (!m_isTouched)
        return m_given;
    return m_forever->isChecked() ? QVariant() : QVariant(UnitDates::textOf(m_date->date()));
}

void DateEditor::setValue(const QVariant& value)
{
    m_given = value;
    m_isTouched = false;
    const QDate date = UnitDates::dateOf(value.toString());
    const QSignalBlocker quietDate(m_date);
    const QSignalBlocker quietBox(m_forever);
    if (date.isValid())
        m_date->setDate(date);
    m_forever->setChecked(!value.isValid());
    setForever(!value.isValid());
    const bool isStrange = !date.isValid() && !value.toString().isEmpty();
    m_note->setText(isStrange ? tr("not “%1”").arg(value.toString()) : QString());
    m_note->setVisible(isStrange);
    setAccessibleDescription(m_note->text());
}

void DateEditor::touch()
{
    m_isTouched = true;
    m_note->hide();
    emit edited();
}

void DateEditor::setForever(bool isForever)
{
    const bool isChoice = !m_forever->isHidden();
    m_date->setEnabled(!(isForever && isChoice));
    setFocusProxy(m_date->isEnabled() ? static_cast<QWidget*>(m_date) : m_forever);
}
