// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtWidgets/QWidget>

class DifferenceTree;
class QComboBox;
class QLabel;
class QPushButton;
class UnitWorkspace;

/**
 * How the contents differ from what the unit held, from a backup, from another page, or from a
 * file. Each change is to be taken over, or left.
 */
class ComparisonPage : public QWidget {
    Q_OBJECT

public:
    explicit ComparisonPage(UnitWorkspace& workspace, QWidget* parent = nullptr);

    /** What the other open pages hold. */
    void setOthers(const QVector<UnitWorkspace*>& others);
    /** Makes the list of what there is to compare with again. */
    void updateSources();
    void takeChosen();

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    struct Source {
        QString title;
        QuadrelDocument::Contents contents;
        /** To be read when it is chosen; empty: the contents are there. */
        QString path;
    };

    void addFile();
    void compare();
    void retranslate();

    UnitWorkspace& m_workspace;
    QVector<Source> m_sources;
    QVector<Source> m_files;
    QVector<UnitWorkspace*> m_others;
    QLabel* m_with;
    QComboBox* m_choice;
    QPushButton* m_file;
    QLabel* m_summary;
    DifferenceTree* m_tree;
    QPushButton* m_all;
    QPushButton* m_none;
    QPushButton* m_take;
};
