// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets/QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class UnitWorkspace;

/** Replaces the unit's firmware, after all checks of its images. */
class FirmwarePage : public QWidget {
    Q_OBJECT

public:
    explicit FirmwarePage(UnitWorkspace& workspace, QWidget* parent = nullptr);

    /** The descriptor may be empty. */
    void setFiles(const QString& streamed, const QString& addressed, const QString& descriptor);
    /** Checks the files, asks, and begins. */
    void askToUpgrade();

protected:
    void changeEvent(QEvent* event) override;

private:
    struct File {
        QLabel* label;
        QLineEdit* path;
        QPushButton* choose;
    };

    File addFile(class QGridLayout* layout);
    void update();
    void retranslate();

    UnitWorkspace& m_workspace;
    QLabel* m_hint;
    File m_streamed{};
    File m_addressed{};
    File m_descriptor{};
    QLabel* m_doubts;
    QPushButton* m_upgrade;
};
