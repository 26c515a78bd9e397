// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <finding.h>

#include <QtCore/QMap>
#include <QtWidgets/QWidget>

#include <functional>

class ComparisonPage;
class FindingsList;
class FirmwarePage;
class LogPage;
class MapPicture;
class OperationBar;
class OverviewPage;
class QListWidget;
class QSplitter;
class QStackedWidget;
class TablePage;
class UnitWorkspace;
class WeekPicture;

/** All that there is of one unit or document: its pages, and below them what is wrong with it. */
class UnitPage : public QWidget {
    Q_OBJECT

public:
    /** The workspace outlives it. */
    explicit UnitPage(UnitWorkspace& workspace, QWidget* parent = nullptr);

    UnitWorkspace& workspace() const { return m_workspace; }
    OperationBar& operationBar() { return *m_bar; }
    /** The table of a section that has one. */
    TablePage& table(QuadrelDocument::Section section) { return *m_tables.value(section); }
    OverviewPage& overview() { return *m_overview; }
    ComparisonPage& comparison() { return *m_comparison; }
    FirmwarePage& firmware() { return *m_firmware; }
    LogPage& log() { return *m_log; }
    WeekPicture& week() { return *m_week; }
    MapPicture& map() { return *m_map; }
    /** Brings one of the pages to the front. */
    void showPage(const QWidget& page);
    void showSection(QuadrelDocument::Section section);
    void showPlace(const QuadrelDocument::Place& place);

protected:
    void changeEvent(QEvent* event) override;

private:
    void addPage(QWidget* page, const std::function<QString()>& title);
    void connectPictures();
    void updatePictures();
    void retranslate();

    UnitWorkspace& m_workspace;
    OperationBar* m_bar;
    QListWidget* m_list;
    QStackedWidget* m_pages;
    QSplitter* m_splitter;
    FindingsList* m_findings;
    QMap<QuadrelDocument::Section, TablePage*> m_tables;
    ComparisonPage* m_comparison;
    OverviewPage* m_overview;
    FirmwarePage* m_firmware;
    LogPage* m_log;
    WeekPicture* m_week;
    MapPicture* m_map;
    /** In the order of the list. */
    QVector<std::function<QString()>> m_titles;
};
