// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "byteseditor.h"

#include "fixedfont.h"
#include "hexinput.h"

#include <unitcontents.h>

#include <QtCore/QEvent>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>

using namespace QuadrelDocument;

namespace {

enum Control { HexControl, TextControl };

constexpr int paneColumns = 24;
constexpr int paneLines = 4;

/** The first character of text that is no byte and no escape. */
int errorInText(const QString& text)
{
    int position = 0;
    while (position < text.size()) {
        const bool isEscape = text.at(position) == QLatin1Char('\\');
        const bool isHexEscape = isEscape && text.midRef(position + 1, 1) == QLatin1String("x");
        const int length = isHexEscape ? 4 : isEscape ? 2 : 1;
        if (!bytesOfEscapedText(text.mid(position, length)))
            break;
        position += length;
    }
    return position;
}

QPlainTextEdit* newPane(const QString& name, QWidget* parent)
{
    auto* pane = new QPlainTextEdit(parent);
    pane->setAccessibleName(name);
    pane->setTabChangesFocus(true);
    pane->setFont(fixedFont());
    pane->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    const QFontMetrics metrics(pane->font());
    const int margins =
        2 * (pane->frameWidth() + static_cast<int>(pane->document()->documentMargin()));
    pane->setMinimumSize(metrics.horizontalAdvance(QLatin1Char('0')) * paneColumns + margins,
        metrics.lineSpacing() * paneLines + margins);
    return pane;
}

} // namespace

BytesEditor::BytesEditor(int limit, QWidget* parent)
    : CellEditor(parent)
    , m_limit(limit)
    , m_hex(newPane(tr("Hexadecimal digits"), this))
    , m_text(newPane(tr("Text"), this))
    , m_count(new QLabel(this))
    , m_problem(new QLabel(this))
{
    auto* hexTitle = new QLabel(tr("He&x"), this);
    auto* textTitle = new QLabel(tr("&Text"), this);
    hexTitle->setBuddy(m_hex);
    textTitle->setBuddy(m_text);
    m_problem->setWordWrap(true);
    m_problem->setTextFormat(Qt::PlainText);

    auto* layout = new QGridLayout(this);
    layout->addWidget(hexTitle, 0, 0);
    layout->addWidget(textTitle, 0, 1);
    layout->addWidget(m_hex, 1, 0);
    layout->addWidget(m_text, 1, 1);
    layout->addWidget(m_count, 2, 0, 1, 2);
    layout->addWidget(m_problem, 3, 0, 1, 2);
    layout->setRowStretch(1, 1);

    connect(m_hex, &QPlainTextEdit::textChanged, this, &BytesEditor::takeHex);
    connect(m_text, &QPlainTextEdit::textChanged, this, &BytesEditor::takeText);
    takeKeysOf(m_hex);
    takeKeysOf(m_text);
    setTabStops({m_hex, m_text});
    report();
}

QVariant BytesEditor::value() const
{
    return m_bytes;
}

void BytesEditor::setValue(const QVariant& value)
{
    m_bytes = value.toByteArray();
    m_hexProblem.clear();
    m_textProblem.clear();
    showIn(m_hex, hexText(m_bytes));
    showIn(m_text, escapedText(m_bytes));
    report();
}

QString BytesEditor::problem() const
{
    return m_hexProblem.isEmpty() ? m_textProblem : m_hexProblem;
}

CellEditor::Draft BytesEditor::draft() const
{
    if (!m_hexProblem.isEmpty())
        return {m_hex->toPlainText(), HexControl};
    return {m_text->toPlainText(), TextControl};
}

void BytesEditor::setDraft(const Draft& draft)
{
    QPlainTextEdit* pane = draft.control == HexControl ? m_hex : m_text;
    pane->setPlainText(draft.text);
    pane->setFocus();
    pane->moveCursor(QTextCursor::End);
}

/** A side that is left in order takes its usual form. */
bool BytesEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusOut && problem().isEmpty()) {
        showIn(m_hex, hexText(m_bytes));
        showIn(m_text, escapedText(m_bytes));
    }
    return CellEditor::eventFilter(watched, event);
}

void BytesEditor::takeHex()
{
    const QString text = m_hex->toPlainText();
    const HexInput input = HexInput::fromText(text);
    markHex(input.errorStart, input.errorLength);
    if (input.isValid()) {
        m_hexProblem.clear();
        m_bytes = input.bytes;
        showIn(m_text, escapedText(m_bytes));
    } else {
        m_hexProblem = input.isHalf
            ? tr("The digit at place %1 needs a second one.").arg(input.errorStart + 1)
            : tr("“%1” at place %2 is no hexadecimal digit; 0 to 9 and A to F are allowed.")
                  .arg(text.at(input.errorStart))
                  .arg(input.errorStart + 1);
    }
    report();
    emit edited();
}

void BytesEditor::takeText()
{
    const QString text = m_text->toPlainText();
    const std::optional<QByteArray> bytes = bytesOfEscapedText(text);
    if (bytes) {
        m_textProblem.clear();
        m_bytes = *bytes;
        showIn(m_hex, hexText(m_bytes));
    } else {
        const int place = errorInText(text);
        m_textProblem = text.at(place) == QLatin1Char('\\')
            ? tr("The backslash at place %1 begins no escape; \\\\ \\r \\n \\t \\0 and \\xHH are "
                 "allowed.")
                  .arg(place + 1)
            : tr("“%1” at place %2 is more than one byte; type its bytes as hexadecimal digits.")
                  .arg(text.mid(place, text.at(place).isHighSurrogate() ? 2 : 1))
                  .arg(place + 1);
    }
    report();
    emit edited();
}

void BytesEditor::report()
{
    m_hex->setReadOnly(!m_textProblem.isEmpty());
    m_text->setReadOnly(!m_hexProblem.isEmpty());
    const int left = m_limit - m_bytes.size();
    m_count->setText(left >= 0
            ? tr("%1 of %2 bytes, %3 left").arg(m_bytes.size()).arg(m_limit).arg(left)
            : tr("%1 of %2 bytes: %3 too many").arg(m_bytes.size()).arg(m_limit).arg(-left));
    QFont font = this->font();
    font.setBold(left < 0);
    m_count->setFont(font);
    m_problem->setText(problem());
    setAccessibleDescription(problem().isEmpty() ? m_count->text() : problem());
}

void BytesEditor::markHex(int start, int length)
{
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(m_hex->document());
    mark.cursor.setPosition(start);
    mark.cursor.setPosition(start + length, QTextCursor::KeepAnchor);
    mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
    mark.format.setFontWeight(QFont::Bold);
    m_hex->setExtraSelections(
        length == 0 ? QList<QTextEdit::ExtraSelection>() : QList<QTextEdit::ExtraSelection>{mark});
}

void BytesEditor::showIn(QPlainTextEdit* pane, const QString& text)
{
    if (pane->toPlainText() == text)
        return;
    const QSignalBlocker quiet(pane);
    pane->setPlainText(text);
    if (pane == m_hex)
        markHex(0, 0);
}
