// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

class QLabel;
class QPlainTextEdit;
class QPushButton;
class UnitWorkspace;

/** The frames between this program and the unit, to be saved for support. */
class LogPage : public QWidget {
    Q_OBJECT

public:
    explicit LogPage(UnitWorkspace& workspace, QWidget* parent = nullptr);

    /** Saves all frames; the reason of a failure, or an empty text. */
    QString save(const QString& path);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void askForFile();
    void showNewLines();
    void retranslate();

    UnitWorkspace& m_workspace;
    QTimer m_timer;
    qint64 m_shownBytes = 0;
    QPlainTextEdit* m_text;
    QPushButton* m_save;
};
