// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "failonwarnings.h"
#include "mainwindow/mainwindow.h"
#include "pages/operationbar.h"
#include "samplecontents.h"
#include "units/unitpage.h"
#include "units/unitspanel.h"
#include "workspace/unitworkspace.h"

#include <unitdocument.h>

#include <QtCore/QMimeData>
#include <QtCore/QTemporaryDir>
#include <QtGui/QDropEvent>
#include <QtTest/QtTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

using namespace QuadrelDocument;

namespace {

QuadrelWorkspace::WorkOptions optionsIn(const QTemporaryDir& folder)
{
    QuadrelWorkspace::WorkOptions options;
    options.folders = {folder.filePath(QStringLiteral("settings")),
        folder.filePath(QStringLiteral("backups")), folder.filePath(QStringLiteral("locks"))};
    return options;
}

QString savedSample(const QTemporaryDir& folder, const char* name)
{
    const QString path = folder.filePath(QString::fromLatin1(name));
    if (!saveFile(path, sampleContents()).isEmpty())
        qFatal("the sample can't be saved");
    return path;
}

void edit(UnitPage& page)
{
    Event event = page.workspace().contents().events->at(0);
    event.description = QStringLiteral("Edited");
    page.workspace().document().replace(0, event, QStringLiteral("edit"));
}

/** Answers the next question with the button. */
void answerNext(QMessageBox::StandardButton button)
{
    QTimer::singleShot(0, qApp, [button] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            qFatal("there is no question");
        box->button(button)->click();
    });
}

} // namespace

class TestFiles : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { failOnWarnings(); }
    void savesInItsForm_data();
    void savesInItsForm();
    void asksBeforeItCloses();
    void opensWhatIsDropped();
    void noticesAnotherProgram();
    void doesNotNoticeItself();
    void keepsEditsOverACrash();
    void leavesNothingAfterAGoodEnd();
    void keepsWindowAndList();
};

void TestFiles::savesInItsForm_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("YAML") << "hall.yaml";
    QTest::newRow("JSON") << "hall.json";
}

void TestFiles::savesInItsForm()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    const QString path = savedSample(folder, qPrintable(name));
    MainWindow window(optionsIn(folder));
    window.show();
    UnitPage* page = window.openFile(path);
    edit(*page);
    QVERIFY(window.isWindowModified());
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!window.isWindowModified());
    QVERIFY(loadFile(path).contents == page->workspace().contents());
}

void TestFiles::asksBeforeItCloses()
{
    const QTemporaryDir folder;
    const QString path = savedSample(folder, "hall.yaml");
    MainWindow window(optionsIn(folder));
    window.show();
    edit(*window.openFile(path));
    answerNext(QMessageBox::Cancel);
    QVERIFY(!window.close());
    QVERIFY(window.isVisible());
    QVERIFY(loadFile(path).contents == sampleContents());

    answerNext(QMessageBox::Save);
    QVERIFY(window.close());
    QCOMPARE(loadFile(path).contents.events->at(0).description, QStringLiteral("Edited"));

    MainWindow other(optionsIn(folder));
    other.show();
    UnitPage* page = other.openFile(path);
    page->workspace().document().remove<Event>(0, 1, QStringLiteral("remove"));
    answerNext(QMessageBox::Discard);
    QVERIFY(other.close());
    QCOMPARE(loadFile(path).contents.events->at(0).description, QStringLiteral("Edited"));
}

void TestFiles::opensWhatIsDropped()
{
    const QTemporaryDir folder;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(savedSample(folder, "hall.yaml")),
        QUrl::fromLocalFile(savedSample(folder, "stage.json"))});
    MainWindow window(optionsIn(folder));
    QDragEnterEvent enter({}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &enter);
    QDropEvent drop({}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &drop);
    QCOMPARE(window.units().documents().size(), 2);
    QCOMPARE(window.currentPage()->workspace().title(), QStringLiteral("stage.json"));
}

void TestFiles::noticesAnotherProgram()
{
    const QTemporaryDir folder;
    const QString path = savedSample(folder, "hall.yaml");
    MainWindow window(optionsIn(folder));
    window.show();
    UnitPage* page = window.openFile(path);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QSignalSpy changes(&page->workspace(), &UnitWorkspace::fileChanged);
    Contents other = sampleContents();
    other.events->removeLast();
    QVERIFY(saveFile(path, other).isEmpty());
    QVERIFY(changes.wait());
    QVERIFY(page->operationBar().isVisible());
    QVERIFY(page->operationBar().findChild<QLabel*>()->text().startsWith(
        QStringLiteral("%1 was changed by another program").arg(path)));
    QTest::keyClick(&window, Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(page->workspace().contents() == other);

    // Once more, since the file was replaced.
    QVERIFY(saveFile(path, sampleContents()).isEmpty());
    QVERIFY(changes.wait());
}

void TestFiles::doesNotNoticeItself()
{
    const QTemporaryDir folder;
    MainWindow window(optionsIn(folder));
    UnitPage* page = window.openFile(savedSample(folder, "hall.yaml"));
    QSignalSpy changes(&page->workspace(), &UnitWorkspace::fileChanged);
    edit(*page);
    QCOMPARE(page->workspace().saveFile(page->workspace().filePath()), QString());
    QVERIFY(!page->workspace().isFileChanged());
    QCoreApplication::processEvents();
    QCOMPARE(changes.size(), 0);
}

void TestFiles::keepsEditsOverACrash()
{
    const QTemporaryDir folder;
    const QString path = savedSample(folder, "hall.yaml");
    const QString runs = folder.filePath(QStringLiteral("settings/quadrelstudio-autosave"));
    Contents edited = sampleContents();
    edited.events->removeFirst();
    {
        Autosave crashed(runs);
        QCOMPARE(crashed.keep(1, edited, path), QString());
        // What runs still is not offered.
        QVERIFY(Autosave(runs).left().isEmpty());
        // The crash: what was written stays, and the lock goes.
        const QString own = QDir(runs).entryList(QDir::Dirs | QDir::NoDotAndDotDot).first();
        QVERIFY(QDir().mkpath(runs + QStringLiteral("/old")));
        QVERIFY(QFile::copy(
            QStringLiteral("%1/%2/1.yaml").arg(runs, own), runs + QStringLiteral("/old/1.yaml")));
    }
    MainWindow window(optionsIn(folder));
    window.show();
    window.offerAutosaves();
    auto* box = window.findChild<QMessageBox*>();
    QVERIFY(box);
    box->button(QMessageBox::Yes)->click();
    UnitPage* page = window.currentPage();
    QVERIFY(page);
    QCOMPARE(page->workspace().filePath(), path);
    QVERIFY(page->workspace().contents() == edited);
    QVERIFY(page->workspace().isModified());
    QVERIFY(!QFile::exists(runs + QStringLiteral("/old/1.yaml")));
}

void TestFiles::leavesNothingAfterAGoodEnd()
{
    const QTemporaryDir folder;
    const QString runs = folder.filePath(QStringLiteral("settings/quadrelstudio-autosave"));
    {
        MainWindow window(optionsIn(folder));
        edit(*window.openFile(savedSample(folder, "hall.yaml")));
        window.autosave();
        QCOMPARE(QDir(runs).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
    }
    QCOMPARE(QDir(runs).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 0);
}

void TestFiles::keepsWindowAndList()
{
    const QTemporaryDir folder;
    const QString path = savedSample(folder, "hall.yaml");
    {
        MainWindow window(optionsIn(folder));
        window.resize(900, 500);
        window.show();
        window.openFile(path);
        window.addUnit(*UnitAddress::fromText(QStringLiteral("10.1.2.3")), QString());
        QVERIFY(window.close());
    }
    MainWindow window(optionsIn(folder));
    QCOMPARE(window.units().documents(), QStringList({path}));
    QCOMPARE(window.units().units(), QStringList({QStringLiteral("tcp://10.1.2.3:3801")}));
    QCOMPARE(window.height(), 500);
}

QTEST_MAIN(TestFiles)
#include "tst_files.moc"
