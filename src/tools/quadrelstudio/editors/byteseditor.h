// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "celleditor.h"

#include <QtCore/QByteArray>

class QLabel;
class QPlainTextEdit;

/**
 * Bytes as hexadecimal digits and as text side by side; each follows what is typed into the other.
 *
 * The text has the escapes \\ \r \n \t \0 \xHH; see QuadrelDocument::escapedText(). While one side
 * is wrong, the other can't be typed into, so that nothing typed is replaced. The value is a
 * QByteArray, which may be longer than the limit: the editor says so and keeps all of it.
 */
class BytesEditor : public CellEditor {
    Q_OBJECT

public:
    explicit BytesEditor(int limit, QWidget* parent = nullptr);

    QVariant value() const override;
    void setValue(const QVariant& value) override;
    QString problem() const override;
    Draft draft() const override;
    void setDraft(const Draft& draft) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void takeHex();
    void takeText();
    void report();
    void markHex(int start, int length);
    void showIn(QPlainTextEdit* pane, const QString& text);

    int m_limit;
    QByteArray m_bytes;
    QString m_hexProblem;
    QString m_textProblem;
    QPlainTextEdit* m_hex;
    QPlainTextEdit* m_text;
    QLabel* m_count;
    QLabel* m_problem;
};
