// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "failonwarnings.h"
#include "mainwindow/mainwindow.h"
#include "models/sectionmodel.h"
#include "pages/tablepage.h"
#include "samplecontents.h"
#include "units/unitpage.h"
#include "views/recordview.h"
#include "workspace/unitworkspace.h"

#include <unitdocument.h>

#include <QtCore/QTemporaryDir>
#include <QtGui/QClipboard>
#include <QtTest/QtTest>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>

using namespace QuadrelDocument;

namespace {

/** A window with the sample's document in it. */
struct SampleWindow {
    SampleWindow()
    {
        path = folder.filePath(QStringLiteral("hall.yaml"));
        if (!saveFile(path, sampleContents()).isEmpty())
            qFatal("the sample can't be saved");
        window.show();
        page = window.openFile(path);
        if (!page || !QTest::qWaitForWindowExposed(&window))
            qFatal("the sample can't be shown");
    }

    ~SampleWindow() { page->workspace().document().undoStack().setClean(); }

    TablePage& show(Section section)
    {
        page->showSection(section);
        return page->table(section);
    }
    const Contents& contents() const { return page->workspace().contents(); }
    QUndoStack& undoStack() { return page->workspace().document().undoStack(); }

    QTemporaryDir folder;
    QString path;
    MainWindow window;
    UnitPage* page;
};

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { failOnWarnings(); }
    void opensEmpty();
    void opensFiles();
    void showsAnOpenFileAgain();
    void refusesBrokenFiles();
    void editsByKeyboard();
    void copiesRowsBetweenTables();
    void sortsInThreeSteps();
    void filters();
    void goesToFindings();
};

void TestMainWindow::opensEmpty()
{
    MainWindow window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.windowTitle(), QStringLiteral("quadrelstudio"));
    QVERIFY(!window.currentPage());
}

void TestMainWindow::opensFiles()
{
    SampleWindow sample;
    QCOMPARE(sample.window.windowTitle(), QStringLiteral("hall.yaml[*] - quadrelstudio"));
    QCOMPARE(sample.show(Section::Events).model().rowCount(), sampleContents().events->size());
    QVERIFY(!sample.window.isWindowModified());
}

void TestMainWindow::showsAnOpenFileAgain()
{
    SampleWindow sample;
    sample.window.newDocument();
    QCOMPARE(sample.window.openFile(sample.path), sample.page);
    QCOMPARE(sample.window.currentPage(), sample.page);
}

void TestMainWindow::refusesBrokenFiles()
{
    MainWindow window;
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("broken.yaml"));
    QVERIFY(saveText(path, "events: [{id: x}]\n").isEmpty());
    QVERIFY(!window.openFile(path));
    const auto* box = window.findChild<QMessageBox*>();
    QVERIFY(box);
    QVERIFY2(box->text().startsWith(path + QStringLiteral(":1:")), qPrintable(box->text()));
}

void TestMainWindow::editsByKeyboard()
{
    SampleWindow sample;
    RecordView& view = sample.show(Section::Events).view();
    const Contents before = sample.contents();
    view.setFocus();
    view.setCurrentIndex(view.model()->index(0, 0));

    QTest::keyClick(&view, Qt::Key_Insert);
    QCOMPARE(sample.contents().events->size(), before.events->size() + 1);
    QTest::keyClick(&view, Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(sample.contents().events->size(), before.events->size() + 2);
    QTest::keyClick(&view, Qt::Key_Delete);
    QCOMPARE(sample.contents().events->size(), before.events->size() + 1);
    QTest::keyClick(&view, Qt::Key_Up, Qt::AltModifier);
    QVERIFY(sample.window.isWindowModified());
    QTest::keyClick(&sample.window, Qt::Key_Z, Qt::ControlModifier);
    sample.undoStack().setIndex(0);
    QVERIFY(sample.contents() == before);
    QVERIFY(!sample.window.isWindowModified());
}

void TestMainWindow::copiesRowsBetweenTables()
{
    SampleWindow sample;
    RecordView& view = sample.show(Section::Events).view();
    view.setFocus();
    view.selectRow(2);
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    UnitPage* other = sample.window.newDocument();
    other->showSection(Section::Events);
    other->table(Section::Events).view().setFocus();
    QTest::keyClick(&other->table(Section::Events).view(), Qt::Key_V, Qt::ControlModifier);
    QVERIFY(other->workspace().contents().events);
    QCOMPARE(other->workspace().contents().events->size(), 1);
    QVERIFY(other->workspace().contents().events->at(0) == sample.contents().events->at(2));
    other->workspace().document().undoStack().setClean();
}

void TestMainWindow::sortsInThreeSteps()
{
    SampleWindow sample;
    RecordView& view = sample.show(Section::Events).view();
    const int column =
        sample.page->table(Section::Events).model().columnOf(QStringLiteral("description"));
    const auto texts = [&view, column] {
        QStringList texts;
        for (int row = 0; row < view.model()->rowCount(); ++row)
            texts.append(view.model()->index(row, column).data().toString());
        return texts;
    };
    const QStringList ofDocument = texts();
    QHeaderView* header = view.horizontalHeader();
    const auto click = [header, column] { emit header->sectionClicked(column); };
    click();
    QStringList sorted = ofDocument;
    std::sort(sorted.begin(), sorted.end(), [](const QString& left, const QString& right) {
        return left.localeAwareCompare(right) < 0;
    });
    QCOMPARE(texts(), sorted);
    click();
    std::reverse(sorted.begin(), sorted.end());
    QCOMPARE(texts().first(), sorted.first());
    click();
    QCOMPARE(texts(), ofDocument);
}

void TestMainWindow::filters()
{
    SampleWindow sample;
    TablePage& table = sample.show(Section::Events);
    auto* filter = table.findChild<QLineEdit*>();
    QTest::keyClicks(filter, QStringLiteral("no such text"));
    QCOMPARE(table.view().model()->rowCount(), 0);
    filter->clear();
    QCOMPARE(table.view().model()->rowCount(), sample.contents().events->size());
}

void TestMainWindow::goesToFindings()
{
    SampleWindow sample;
    sample.show(Section::Triggers);
    sample.page->showPlace({Section::Events, 3, QStringLiteral("description")});
    RecordView& view = sample.page->table(Section::Events).view();
    QVERIFY(view.isVisible());
    QCOMPARE(view.currentIndex().row(), 3);
    QCOMPARE(view.currentIndex().column(),
        sample.page->table(Section::Events).model().columnOf(QStringLiteral("description")));
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
