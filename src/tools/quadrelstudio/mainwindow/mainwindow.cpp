// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "mainwindow.h"

#include "dialogs/plandialog.h"
#include "language.h"
#include "pages/comparisonpage.h"
#include "pages/operationbar.h"
#include "units/unitpage.h"
#include "units/unitspanel.h"
#include "workspace/unitworkspace.h"

#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QAction>
#include <QtWidgets/QActionGroup>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QUndoGroup>
#include <QtWidgets/QUndoView>

#include <algorithm>

namespace {

/** Milliseconds from an edit until it is kept over a crash. */
constexpr int autosaveDelay = 5000;
/** How many units and documents of earlier runs are listed. */
constexpr int mostRecent = 20;

/** What the autosave calls it by. */
int keyOf(const UnitWorkspace& workspace)
{
    return workspace.property("key").toInt();
}

/** What is known of a unit or a document, in a word. */
QString stateOf(const UnitWorkspace& workspace)
{
    if (workspace.isBusy())
        return MainWindow::tr("busy");
    if (!workspace.unitError().isEmpty())
        return MainWindow::tr("failed");
    if (workspace.isModified())
        return MainWindow::tr("changed");
    if (workspace.differsFromUnit())
        return MainWindow::tr("differs");
    return workspace.held() ? MainWindow::tr("read") : QString();
}

} // namespace

MainWindow::MainWindow(
    const QuadrelWorkspace::WorkOptions& options, UnitSearch* search, QWidget* parent)
    : QMainWindow(parent)
    , m_options(options)
    , m_autosave(options.folders.settings + QStringLiteral("/quadrelstudio-autosave"))
    , m_undoGroup(new QUndoGroup(this))
    , m_unitsDock(new QDockWidget(this))
    , m_units(new UnitsPanel(search, m_unitsDock))
    , m_tabs(new QTabWidget(this))
    , m_undoDock(new QDockWidget(this))
    , m_undoView(new QUndoView(m_undoGroup, m_undoDock))
    , m_fileMenu(menuBar()->addMenu(QString()))
    , m_editMenu(menuBar()->addMenu(QString()))
    , m_unitMenu(menuBar()->addMenu(QString()))
    , m_viewMenu(menuBar()->addMenu(QString()))
    , m_languageMenu(m_viewMenu->addMenu(QString()))
    , m_languages(new QActionGroup(this))
    , m_toolBar(addToolBar(QString()))
{
    m_tabs->setDocumentMode(true);
    m_tabs->setTabsClosable(true);
    m_tabs->setMovable(true);
    setCentralWidget(m_tabs);
    connect(m_tabs, &QTabWidget::currentChanged, this, &MainWindow::switchPage);
    connect(m_tabs, &QTabWidget::tabCloseRequested, this, &MainWindow::closePage);

    m_unitsDock->setObjectName(QStringLiteral("units"));
    m_unitsDock->setWidget(m_units);
    addDockWidget(Qt::LeftDockWidgetArea, m_unitsDock);
    connect(m_units, &UnitsPanel::unitActivated, this, &MainWindow::openUnit);
    connect(m_units, &UnitsPanel::documentActivated, this, &MainWindow::openFile);
    connect(m_units, &UnitsPanel::addressWanted, this, &MainWindow::askForAddress);
    setAcceptDrops(true);
    m_autosaveTimer.setSingleShot(true);
    m_autosaveTimer.setInterval(autosaveDelay);
    connect(&m_autosaveTimer, &QTimer::timeout, this, &MainWindow::autosave);

    m_undoDock->setObjectName(QStringLiteral("steps"));
    m_undoDock->setWidget(m_undoView);
    addDockWidget(Qt::RightDockWidgetArea, m_undoDock);
    m_undoDock->hide();
    m_toolBar->setObjectName(QStringLiteral("tools"));
    m_toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);

    makeActions();
    const QSize usualSize(1280, 800);
    resize(usualSize);
    retranslate();
    loadState();
    update();
}

MainWindow::~MainWindow()
{
    // The pages go before the workspaces that they show.
    disconnect(m_tabs, nullptr, this, nullptr);
    while (m_tabs->count() > 0)
        delete m_tabs->widget(0);
}

QAction* MainWindow::addAction(
    QMenu* menu, QAction*& action, const QKeySequence& shortcut, void (MainWindow::*act)())
{
    action = menu->addAction(QString(), this, act);
    action->setShortcut(shortcut);
    return action;
}

void MainWindow::makeActions()
{
    addAction(m_fileMenu, m_new, QKeySequence::New, &MainWindow::createDocument);
    addAction(m_fileMenu, m_open, QKeySequence::Open, &MainWindow::askForFile);
    addAction(m_fileMenu, m_openUnit, Qt::CTRL | Qt::Key_U, &MainWindow::askForAddress);
    m_fileMenu->addSeparator();
    addAction(m_fileMenu, m_save, QKeySequence::Save, &MainWindow::saveCurrent);
    addAction(m_fileMenu, m_saveAs, Qt::CTRL | Qt::SHIFT | Qt::Key_S, &MainWindow::saveCurrentAs);
    m_fileMenu->addSeparator();
    addAction(m_fileMenu, m_reload, Qt::CTRL | Qt::SHIFT | Qt::Key_R, &MainWindow::reloadCurrent);
    addAction(m_fileMenu, m_close, Qt::CTRL | Qt::Key_W, &MainWindow::closeCurrent);
    m_quit = m_fileMenu->addAction(QString(), this, &QWidget::close);
    m_quit->setShortcut(Qt::CTRL | Qt::Key_Q);

    m_undo = m_undoGroup->createUndoAction(this);
    m_undo->setShortcut(QKeySequence::Undo);
    m_redo = m_undoGroup->createRedoAction(this);
    m_redo->setShortcuts({Qt::CTRL | Qt::SHIFT | Qt::Key_Z, Qt::CTRL | Qt::Key_Y});
    m_editMenu->addAction(m_undo);
    m_editMenu->addAction(m_redo);

    addAction(m_unitMenu, m_read, Qt::Key_F5, &MainWindow::readCurrent);
    addAction(m_unitMenu, m_write, Qt::Key_F6, &MainWindow::writeCurrent);
    addAction(m_unitMenu, m_cancel, Qt::CTRL | Qt::Key_Period, &MainWindow::cancelCurrent);

    m_viewMenu->addAction(m_unitsDock->toggleViewAction());
    m_viewMenu->addAction(m_undoDock->toggleViewAction());
    addLanguage(QStringLiteral("en"), QStringLiteral("English"));
    addLanguage(QStringLiteral("zh"), QStringLiteral("中文"));
    m_toolBar->addActions({m_open, m_save});
    m_toolBar->addSeparator();
    m_toolBar->addActions({m_undo, m_redo});
    m_toolBar->addSeparator();
    m_toolBar->addActions({m_read, m_write});
    m_viewMenu->addAction(m_toolBar->toggleViewAction());
}

UnitPage* MainWindow::currentPage() const
{
    return qobject_cast<UnitPage*>(m_tabs->currentWidget());
}

UnitPage* MainWindow::addPage(std::unique_ptr<UnitWorkspace> workspace)
{
    UnitWorkspace& shown = *workspace;
    shown.setProperty("key", ++m_lastKey);
    m_workspaces.push_back(std::move(workspace));
    m_undoGroup->addStack(&shown.document().undoStack());
    connect(&shown, &UnitWorkspace::stateChanged, this, &MainWindow::update);
    connect(&shown, &UnitWorkspace::started, this, &MainWindow::update);
    connect(&shown.document(), &EditableContents::changed, &m_autosaveTimer,
        qOverload<>(&QTimer::start));
    if (shown.address())
        m_units->addUnit(*shown.address(), QString());
    auto* page = new UnitPage(shown, m_tabs);
    connect(&shown, &UnitWorkspace::planReady, page,
        [this, page](
            const QuadrelDocument::Plan& plan, bool isStale) { askToWrite(*page, plan, isStale); });
    connect(&shown, &UnitWorkspace::fileChanged, page, [page] {
        page->operationBar().showMessage(tr("%1 was changed by another program. \"Read the file "
                                            "again\" in the File menu shows what is in it now.")
                                             .arg(page->workspace().filePath()));
    });
    m_tabs->setCurrentIndex(m_tabs->addTab(page, QString()));
    update();
    return page;
}

UnitPage* MainWindow::newDocument()
{
    return addPage(std::make_unique<UnitWorkspace>(m_options));
}

UnitPage* MainWindow::openFile(const QString& path)
{
    const QString absolutePath = QFileInfo(path).absoluteFilePath();
    for (int i = 0; i < m_tabs->count(); ++i) {
        auto* page = static_cast<UnitPage*>(m_tabs->widget(i));
        if (page->workspace().filePath() == absolutePath) {
            m_tabs->setCurrentIndex(i);
            return page;
        }
    }
    auto workspace = std::make_unique<UnitWorkspace>(m_options);
    const QStringList faults = workspace->openFile(absolutePath);
    if (faults.isEmpty())
        return addPage(std::move(workspace));
    constexpr int mostFaults = 10;
    auto* box = new QMessageBox(QMessageBox::Warning, tr("The document can't be opened"),
        QStringList(faults.mid(0, mostFaults)).join(QLatin1Char('\n')), QMessageBox::Ok, this);
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
    return nullptr;
}

UnitPage* MainWindow::openUnit(const UnitAddress& address)
{
    for (int i = 0; i < m_tabs->count(); ++i) {
        auto* page = static_cast<UnitPage*>(m_tabs->widget(i));
        const auto& other = page->workspace().address();
        if (other && other->toText() == address.toText()) {
            m_tabs->setCurrentIndex(i);
            return page;
        }
    }
    auto workspace = std::make_unique<UnitWorkspace>(m_options);
    workspace->setAddress(address);
    UnitPage* page = addPage(std::move(workspace));
    page->workspace().read();
    return page;
}

void MainWindow::askForFile()
{
    const QStringList paths = QFileDialog::getOpenFileNames(this, tr("Open documents"), QString(),
        tr("Unit documents (*.yaml *.yml *.json *.xml);;All files (*)"));
    for (const QString& path : paths)
        openFile(path);
}

void MainWindow::askForAddress()
{
    const QString text = QInputDialog::getText(
        this, tr("Open a unit"), tr("Address, as in 192.168.1.21 or udp://192.168.1.21:3801"));
    if (text.isEmpty())
        return;
    const std::optional<UnitAddress> address = UnitAddress::fromText(text.trimmed());
    if (address)
        openUnit(*address);
    else
        QMessageBox::warning(
            this, tr("Open a unit"), tr("\"%1\" is no address; tcp://HOST:PORT is one").arg(text));
}

bool MainWindow::save(UnitPage& page)
{
    UnitWorkspace& workspace = page.workspace();
    if (workspace.filePath().isEmpty())
        return saveAs(page);
    const QString error = workspace.saveFile(workspace.filePath());
    if (!error.isEmpty())
        page.operationBar().showMessage(error);
    return error.isEmpty();
}

bool MainWindow::saveAs(UnitPage& page)
{
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Save the document"), page.workspace().filePath(),
            tr("YAML documents (*.yaml *.yml);;JSON documents (*.json);;Project files (*.xml)"));
    if (path.isEmpty())
        return false;
    const QStringList losses = page.workspace().lossesIn(path);
    if (!losses.isEmpty()
        && QMessageBox::question(this, tr("Save the document"),
               tr("A project file has no place for some of it. Save it anyway?")
                   + QStringLiteral("\n\n") + losses.join(QLatin1Char('\n')))
            != QMessageBox::Yes)
        return false;
    const QString error = page.workspace().saveFile(path);
    if (!error.isEmpty())
        page.operationBar().showMessage(error);
    return error.isEmpty();
}

bool MainWindow::maySave(UnitPage& page)
{
    if (!page.workspace().isModified())
        return true;
    const auto answer = QMessageBox::question(this, tr("Unsaved changes"),
        tr("Save the changes to \"%1\"?").arg(page.workspace().title()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save)
        return save(page);
    return answer == QMessageBox::Discard;
}

void MainWindow::saveCurrent()
{
    save(*currentPage());
}

void MainWindow::saveCurrentAs()
{
    saveAs(*currentPage());
}

void MainWindow::closeCurrent()
{
    closePage(m_tabs->currentIndex());
}

void MainWindow::closePage(int index)
{
    auto* page = static_cast<UnitPage*>(m_tabs->widget(index));
    if (!maySave(*page))
        return;
    const UnitWorkspace* closed = &page->workspace();
    m_autosave.drop(keyOf(*closed));
    m_tabs->removeTab(index);
    delete page;
    const auto isClosed = [closed](const auto& workspace) { return workspace.get() == closed; };
    m_workspaces.erase(
        std::remove_if(m_workspaces.begin(), m_workspaces.end(), isClosed), m_workspaces.end());
    update();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    for (int i = 0; i < m_tabs->count(); ++i) {
        if (!maySave(*static_cast<UnitPage*>(m_tabs->widget(i)))) {
            event->ignore();
            return;
        }
    }
    saveState();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    const QList<QUrl> urls = event->mimeData()->urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile())
            openFile(url.toLocalFile());
    }
    event->acceptProposedAction();
}

void MainWindow::addUnit(const UnitAddress& address, const QString& name)
{
    m_units->addUnit(address, name);
}

void MainWindow::autosave()
{
    for (const auto& workspace : m_workspaces) {
        const int key = keyOf(*workspace);
        if (workspace->isModified())
            m_autosave.keep(key, workspace->contents(), workspace->filePath());
        else
            m_autosave.drop(key);
    }
}

void MainWindow::offerAutosaves()
{
    const QVector<Autosave::Kept> kept = m_autosave.left();
    if (kept.isEmpty())
        return;
    auto* box = new QMessageBox(QMessageBox::Question, tr("Unsaved changes"),
        tr("The program did not end well, and %n document(s) had unsaved changes. Open them?",
            nullptr, kept.size()),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(box, &QMessageBox::finished, this, [this, kept](int answer) {
        if (answer == QMessageBox::Yes)
            restore(kept);
        if (answer == QMessageBox::No)
            Autosave::forget(kept);
    });
    box->open();
}

void MainWindow::restore(const QVector<Autosave::Kept>& kept)
{
    for (const Autosave::Kept& copy : kept) {
        auto workspace = std::make_unique<UnitWorkspace>(m_options);
        workspace->restore(copy.contents, copy.path);
        addPage(std::move(workspace));
    }
    // They are kept again first, so that none is ever without a copy.
    autosave();
    Autosave::forget(kept);
}

void MainWindow::reloadCurrent()
{
    UnitPage* page = currentPage();
    const QStringList faults = page->workspace().openFile(page->workspace().filePath());
    if (!faults.isEmpty())
        page->operationBar().showMessage(faults.first());
}

void MainWindow::addLanguage(const QString& language, const QString& name)
{
    QAction* action = m_languageMenu->addAction(name);
    action->setCheckable(true);
    action->setChecked(language == Language::current());
    m_languages->addAction(action);
    connect(action, &QAction::triggered, this, [language] { Language::install(language); });
}

QString MainWindow::settingsPath() const
{
    return m_options.folders.settings + QStringLiteral("/quadrelstudio.ini");
}

void MainWindow::loadState()
{
    const QSettings saved(settingsPath(), QSettings::IniFormat);
    restoreGeometry(saved.value(QStringLiteral("geometry")).toByteArray());
    restoreState(saved.value(QStringLiteral("state")).toByteArray());
    const QStringList units = saved.value(QStringLiteral("units")).toStringList();
    for (const QString& unit : units) {
        if (const auto address = UnitAddress::fromText(unit))
            m_units->addUnit(*address, QString());
    }
    const QStringList documents = saved.value(QStringLiteral("documents")).toStringList();
    for (const QString& document : documents)
        m_units->addDocument(document);
}

void MainWindow::saveState()
{
    QSettings saved(settingsPath(), QSettings::IniFormat);
    saved.setValue(QStringLiteral("geometry"), saveGeometry());
    saved.setValue(QStringLiteral("state"), QMainWindow::saveState());
    saved.setValue(QStringLiteral("units"), QStringList(m_units->units().mid(0, mostRecent)));
    saved.setValue(
        QStringLiteral("documents"), QStringList(m_units->documents().mid(0, mostRecent)));
}

void MainWindow::readCurrent()
{
    currentPage()->workspace().read();
}

void MainWindow::writeCurrent()
{
    currentPage()->workspace().prepareWriting();
}

void MainWindow::cancelCurrent()
{
    currentPage()->workspace().cancel();
}

void MainWindow::askToWrite(UnitPage& page, const QuadrelDocument::Plan& plan, bool isStale)
{
    UnitWorkspace& workspace = page.workspace();
    auto* dialog = new PlanDialog(workspace.title(), plan, isStale, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, &workspace, [&workspace, plan] { workspace.write(plan); });
    connect(dialog, &QDialog::rejected, &workspace, &UnitWorkspace::leavePlan);
    dialog->open();
}

void MainWindow::switchPage()
{
    UnitPage* page = currentPage();
    m_undoGroup->setActiveStack(page ? &page->workspace().document().undoStack() : nullptr);
    update();
}

void MainWindow::showWhere(const UnitWorkspace& workspace)
{
    if (workspace.address())
        m_units->setUnitState(*workspace.address(), stateOf(workspace));
    if (!workspace.filePath().isEmpty()) {
        m_units->addDocument(workspace.filePath());
        m_units->setDocumentState(workspace.filePath(), stateOf(workspace));
    }
}

void MainWindow::update()
{
    QVector<UnitWorkspace*> all;
    for (const auto& workspace : m_workspaces)
        all.append(workspace.get());
    const UnitPage* page = currentPage();
    const UnitWorkspace* shown = page ? &page->workspace() : nullptr;
    for (int i = 0; i < m_tabs->count(); ++i) {
        const UnitWorkspace& workspace = static_cast<UnitPage*>(m_tabs->widget(i))->workspace();
        showWhere(workspace);
        static_cast<UnitPage*>(m_tabs->widget(i))->comparison().setOthers(all);
        m_tabs->setTabText(
            i, workspace.title() + (workspace.isModified() ? QStringLiteral(" *") : QString()));
    }
    const bool isReady = shown && shown->address() && !shown->isBusy();
    m_read->setEnabled(isReady);
    m_write->setEnabled(isReady);
    m_cancel->setEnabled(shown && shown->isBusy());
    for (QAction* action : {m_save, m_saveAs, m_close})
        action->setEnabled(shown);
    m_reload->setEnabled(shown && !shown->filePath().isEmpty());
    setWindowTitle(shown ? QStringLiteral("%1[*] - quadrelstudio").arg(shown->title())
                         : QStringLiteral("quadrelstudio"));
    // Only a title with a place for the mark takes it.
    setWindowModified(shown && shown->isModified());
}

void MainWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        update();
    }
    QMainWindow::changeEvent(event);
}

void MainWindow::retranslate()
{
    m_fileMenu->setTitle(tr("&File"));
    m_editMenu->setTitle(tr("&Edit"));
    m_unitMenu->setTitle(tr("&Unit"));
    m_viewMenu->setTitle(tr("&View"));
    m_toolBar->setWindowTitle(tr("Tools"));
    m_undoDock->setWindowTitle(tr("Steps"));
    m_new->setText(tr("&New document"));
    m_open->setText(tr("&Open..."));
    m_openUnit->setText(tr("Open a &unit..."));
    m_save->setText(tr("&Save"));
    m_saveAs->setText(tr("Save &as..."));
    m_reload->setText(tr("Read the file &again"));
    m_close->setText(tr("&Close"));
    m_unitsDock->setWindowTitle(tr("Units"));
    m_languageMenu->setTitle(tr("&Language"));
    m_quit->setText(tr("&Quit"));
    m_read->setText(tr("&Read"));
    m_write->setText(tr("&Write..."));
    m_cancel->setText(tr("&Cancel"));
    m_undoView->setEmptyLabel(tr("As it was opened"));
    m_undoView->setAccessibleName(tr("Steps"));
    m_tabs->setAccessibleName(tr("Units and documents"));
}
