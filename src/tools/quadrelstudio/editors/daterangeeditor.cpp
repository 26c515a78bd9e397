// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "daterangeeditor.h"

#include "dateeditor.h"
#include "unitdates.h"

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>

bool operator==(const DateRange& left, const DateRange& right)
{
    return left.start == right.start && left.end == right.end;
}

DateRangeEditor::DateRangeEditor(QWidget* parent)
    : CellEditor(parent)
    , m_start(new DateEditor(DateEditor::Day, this))
    , m_end(new DateEditor(DateEditor::DayOrForever, this))
    , m_length(new QLabel(this))
{
    auto* layout = new QGridLayout(this);
    auto* startTitle = new QLabel(tr("Fro&m"), this);
    auto* endTitle = new QLabel(tr("&Until"), this);
    startTitle->setBuddy(m_start);
    endTitle->setBuddy(m_end);
    m_start->setAccessibleName(tr("First day"));
    m_end->setAccessibleName(tr("Last day"));
    layout->addWidget(startTitle, 0, 0);
    layout->addWidget(m_start, 0, 1);
    layout->addWidget(endTitle, 1, 0);
    layout->addWidget(m_end, 1, 1);
    layout->addWidget(m_length, 2, 1);
    layout->setColumnStretch(1, 1);
    for (DateEditor* editor : {m_start, m_end})
        connect(editor, &CellEditor::edited, this, [this] {
            report();
            emit edited();
        });
    setFocusProxy(m_start);
    report();
}

QVariant DateRangeEditor::value() const
{
    const QVariant end = m_end->value();
    return QVariant::fromValue(DateRange{
        m_start->value().toString(), end.isValid() ? std::optional(end.toString()) : std::nullopt});
}

void DateRangeEditor::setValue(const QVariant& value)
{
    const auto range = value.value<DateRange>();
    m_start->setValue(range.start);
    m_end->setValue(range.end ? QVariant(*range.end) : QVariant());
    report();
}

void DateRangeEditor::report()
{
    const QDate start = UnitDates::dateOf(m_start->value().toString());
    const QDate end = UnitDates::dateOf(m_end->value().toString());
    QString text;
    if (start.isValid() && end.isValid())
        text = end < start ? tr("It ends before it begins, and never fires.")
                           : tr("%n day(s)", "", static_cast<int>(start.daysTo(end)) + 1);
    m_length->setText(text);
    setAccessibleDescription(text);
}
