// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "workspace/unitworkspace.h"

#include <QtWidgets/QFrame>

class QLabel;
class QProgressBar;
class QToolButton;

/** What the unit is busy with, how far it is, and how it ended; hidden while there is nothing. */
class OperationBar : public QFrame {
    Q_OBJECT

public:
    explicit OperationBar(UnitWorkspace& workspace, QWidget* parent = nullptr);

    /** Shows a message until it is dismissed or an operation begins. */
    void showMessage(const QString& text);

protected:
    void changeEvent(QEvent* event) override;

private:
    void begin(UnitWorkspace::Operation operation);
    void report(const QString& step, double fraction, qint64 remaining);
    void end(UnitWorkspace::Operation operation, const QuadrelWorkspace::WorkResult& result);
    void retranslate();

    UnitWorkspace& m_workspace;
    QLabel* m_text;
    QProgressBar* m_progress;
    QLabel* m_remaining;
    QToolButton* m_cancel;
    QToolButton* m_dismiss;
};
