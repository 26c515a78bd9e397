// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "workspace/autosave.h"

#include <contentsplan.h>
#include <unitaddress.h>
#include <unitwork.h>

#include <QtCore/QTimer>
#include <QtWidgets/QMainWindow>

#include <memory>
#include <vector>

class QActionGroup;
class QTabWidget;
class QUndoGroup;
class QUndoView;
class UnitPage;
class UnitSearch;
class UnitWorkspace;
class UnitsPanel;

/** The one window of the application: units on the left, their pages beside them. */
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    /** `search` finds units, and outlives the window; null for none. */
    explicit MainWindow(const QuadrelWorkspace::WorkOptions& options = {},
        UnitSearch* search = nullptr, QWidget* parent = nullptr);
    ~MainWindow() override;

    /** Opens a document, or shows it if it is open; null, and a message, if it can't be read. */
    UnitPage* openFile(const QString& path);
    /** Opens the page of a unit, and reads it. */
    UnitPage* openUnit(const UnitAddress& address);
    UnitPage* newDocument();
    /** Puts a unit on the list. */
    void addUnit(const UnitAddress& address, const QString& name);
    UnitsPanel& units() { return *m_units; }
    /** Opens what runs of the program left that did not end well, if the user wants it. */
    void offerAutosaves();
    /** Keeps all unsaved contents over a crash; done by itself a while after each edit. */
    void autosave();
    /** The page in front; null if there is none. */
    UnitPage* currentPage() const;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void makeActions();
    QAction* addAction(
        QMenu* menu, QAction*& action, const QKeySequence& shortcut, void (MainWindow::*act)());
    UnitPage* addPage(std::unique_ptr<UnitWorkspace> workspace);
    void closePage(int index);
    /** Saves, throws away or stays, as the user decides; false: stays. */
    bool maySave(UnitPage& page);
    bool save(UnitPage& page);
    bool saveAs(UnitPage& page);
    void askForFile();
    void askForAddress();
    void saveCurrent();
    void saveCurrentAs();
    void closeCurrent();
    void createDocument() { newDocument(); }
    void readCurrent();
    void writeCurrent();
    void cancelCurrent();
    void askToWrite(UnitPage& page, const QuadrelDocument::Plan& plan, bool isStale);
    void reloadCurrent();
    void addLanguage(const QString& language, const QString& name);
    void restore(const QVector<Autosave::Kept>& kept);
    void showWhere(const UnitWorkspace& workspace);
    QString settingsPath() const;
    void loadState();
    void saveState();
    void switchPage();
    void update();
    void retranslate();

    const QuadrelWorkspace::WorkOptions m_options;
    int m_lastKey = 0;
    Autosave m_autosave;
    QTimer m_autosaveTimer;
    QUndoGroup* m_undoGroup;
    QDockWidget* m_unitsDock;
    UnitsPanel* m_units;
    QTabWidget* m_tabs;
    QDockWidget* m_undoDock;
    QUndoView* m_undoView;
    std::vector<std::unique_ptr<UnitWorkspace>> m_workspaces;

    QMenu* m_fileMenu;
    QMenu* m_editMenu;
    QMenu* m_unitMenu;
    QMenu* m_viewMenu;
    QMenu* m_languageMenu;
    QActionGroup* m_languages;
    QToolBar* m_toolBar;
    QAction* m_new = nullptr;
    QAction* m_open = nullptr;
    QAction* m_openUnit = nullptr;
    QAction* m_save = nullptr;
    QAction* m_saveAs = nullptr;
    QAction* m_close = nullptr;
    QAction* m_reload = nullptr;
    QAction* m_quit = nullptr;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QAction* m_read = nullptr;
    QAction* m_write = nullptr;
    QAction* m_cancel = nullptr;
};
