// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "texteditor.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

TextEditor::TextEditor(int limit, int alsoUsed, QWidget* parent)
    : CellEditor(parent)
    , m_limit(limit)
    , m_alsoUsed(alsoUsed)
    , m_line(new QLineEdit(this))
    , m_left(new QLabel(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_line, 1);
    layout->addWidget(m_left);
    m_line->setAccessibleName(tr("Text"));
    connect(m_line, &QLineEdit::textChanged, this, &TextEditor::report);
    connect(m_line, &QLineEdit::textEdited, this, &TextEditor::edited);
    setTabStops({m_line});
    report();
}

/** The line edit shows one line, and may hold back what is no text of one. */
QVariant TextEditor::value() const
{
    return m_line->isModified() ? m_line->text() : m_given;
}

void TextEditor::setValue(const QVariant& value)
{
    m_given = value.toString();
    m_line->setText(m_given);
}

void TextEditor::report()
{
    const int left = m_limit - m_alsoUsed - m_line->text().size();
    m_left->setText(
        left >= 0 ? tr("%n left", "UTF-16 units", left) : tr("%n too many", "UTF-16 units", -left));
    m_line->setAccessibleDescription(m_left->text());
}
