// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "choiceeditor.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>

ChoiceEditor::ChoiceEditor(const QVector<Choice>& choices, QWidget* parent)
    : CellEditor(parent)
    , m_choices(choices)
    , m_box(new QComboBox(this))
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_box);
    m_box->setAccessibleName(tr("Choices"));
    m_box->setInsertPolicy(QComboBox::NoInsert);
    for (const Choice& choice : choices)
        m_box->addItem(choice.text);
    connect(m_box, QOverload<int>::of(&QComboBox::activated), this, &ChoiceEditor::edited);
    setTabStops({m_box});
}

void ChoiceEditor::allowNumbers(int least, int most)
{
    m_least = least;
    m_most = most;
    m_box->setEditable(true);
    m_box->setCompleter(nullptr);
    m_box->lineEdit()->setAccessibleName(tr("Number"));
    takeKeysOf(m_box->lineEdit());
    connect(m_box->lineEdit(), &QLineEdit::textEdited, this, [this] {
        m_box->setToolTip(problem());
        setAccessibleDescription(problem());
        emit edited();
    });
}

QVariant ChoiceEditor::value() const
{
    const int place = m_box->isEditable() ? m_box->findText(m_box->currentText().trimmed())
                                          : m_box->currentIndex();
    return place >= 0 ? m_choices.at(place).value : QVariant(m_box->currentText().toInt());
}

void ChoiceEditor::setValue(const QVariant& value)
{
    int place = placeOf(value);
    if (place < 0) {
        place = m_choices.size();
        m_choices.append({value.toString(), value});
        m_box->addItem(value.toString());
    }
    m_box->setCurrentIndex(place);
    if (m_box->isEditable())
        m_box->lineEdit()->selectAll();
}

QString ChoiceEditor::problem() const
{
    if (!m_box->isEditable() || m_box->findText(m_box->currentText().trimmed()) >= 0)
        return {};
    bool isNumber = false;
    const int number = m_box->currentText().toInt(&isNumber);
    return isNumber && number >= m_least && number <= m_most
        ? QString()
        : tr("“%1” is no number from %2 to %3.").arg(m_box->currentText()).arg(m_least).arg(m_most);
}

CellEditor::Draft ChoiceEditor::draft() const
{
    return {m_box->currentText()};
}

void ChoiceEditor::setDraft(const Draft& draft)
{
    m_box->setEditText(draft.text);
}

/** Variants of different types are never equal here: an absent level is not the level 0. */
int ChoiceEditor::placeOf(const QVariant& value) const
{
    for (int i = 0; i < m_choices.size(); ++i) {
        const QVariant& choice = m_choices.at(i).value;
        if (choice.isValid() == value.isValid() && choice == value)
            return i;
    }
    return -1;
}
