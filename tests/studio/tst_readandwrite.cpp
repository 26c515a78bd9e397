// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "failonwarnings.h"
#include "models/sectionmodel.h"
#include "pages/operationbar.h"
#include "pages/tablepage.h"
#include "unitwindow.h"
#include "views/differencetree.h"

#include <backups.h>
#include <contentsdifference.h>

#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

using namespace QuadrelDocument;

namespace {

/** The dialog that is open, once there is one. */
QDialog* awaitDialog(const UnitWindow& test)
{
    QDialog* dialog = nullptr;
    const auto isThere = [&] {
        dialog = test.window.findChild<QDialog*>();
        return dialog && dialog->isVisible();
    };
    return QTest::qWaitFor(isThere, UnitWindow::patience) ? dialog : nullptr;
}

QString message(const UnitWindow& test)
{
    return test.page->operationBar().findChild<QLabel*>()->text();
}

void renameFirstEvent(UnitWindow& test, const QString& name)
{
    SectionModel& model = test.page->table(Section::Events).model();
    model.setData(model.index(0, model.columnOf(QStringLiteral("name"))), name, Qt::EditRole);
}

void pressWrite(UnitWindow& test)
{
    // This platform does not give the focus back when a dialog goes.
    test.window.activateWindow();
    if (!QTest::qWaitFor([&test] { return QApplication::activeWindow() == &test.window; }))
        qFatal("the window does not get active");
    QTest::keyClick(&test.window, Qt::Key_F6);
}

} // namespace

class TestReadAndWrite : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { failOnWarnings(); }
    void reads();
    void readsAgainAsAStep();
    void saysWhyItCantRead_data();
    void saysWhyItCantRead();
    void cancels();
    void writesWhatHasChanged();
    void writesNothingWhenToldNo();
    void saysThatThereIsNothingToWrite();
    void refusesErrors();
    void saysThatTheUnitHasChanged();
    void saysWhatIsWhere_data();
    void saysWhatIsWhere();
};

void TestReadAndWrite::reads()
{
    UnitWindow test;
    QVERIFY(test.workspace().isBusy());
    QVERIFY(test.awaitUnit());
    const Contents stored = test.stored();
    QVERIFY(compareContents(stored, test.contents()).isEmpty());
    QVERIFY(!test.workspace().isModified());
    QVERIFY(!test.workspace().differsFromUnit());
    QVERIFY(!test.page->operationBar().isVisible());
    QCOMPARE(test.page->table(Section::Events).model().rowCount(), sampleEvents);
}

void TestReadAndWrite::readsAgainAsAStep()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    renameFirstEvent(test, QStringLiteral("Mine"));
    QVERIFY(test.workspace().differsFromUnit());
    QTest::keyClick(&test.window, Qt::Key_F5);
    QVERIFY(test.awaitUnit());
    QVERIFY(!test.workspace().differsFromUnit());
    test.workspace().document().undoStack().undo();
    QCOMPARE(*test.contents().events->at(0).name, QStringLiteral("Mine"));
}

void TestReadAndWrite::saysWhyItCantRead_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QString>("beginning");
    QTest::newRow("no answer") << "drop%100"
                               << "no reply from";
    QTest::newRow("cut") << "cut%100"
                         << "tcp://";
    QTest::newRow("closed") << "close%100"
                            << "tcp://";
    QTest::newRow("corrupt") << "corrupt%100"
                             << "tcp://";
    QTest::newRow("wrong address") << "wrong-address%100"
                                   << "tcp://";
}

void TestReadAndWrite::saysWhyItCantRead()
{
    QFETCH(QString, fault);
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    test.addFault(fault);
    const Contents before = test.contents();
    QTest::keyClick(&test.window, Qt::Key_F5);
    QVERIFY(test.awaitUnit());
    QVERIFY(test.page->operationBar().isVisible());
    QVERIFY2(message(test).contains(test.unit.address().toText()), qPrintable(message(test)));
    QVERIFY2(
        message(test).contains(QStringLiteral("failed while reading")), qPrintable(message(test)));
    QVERIFY(test.contents() == before);

    test.clearFaults();
    QTest::keyClick(&test.window, Qt::Key_F5);
    QVERIFY(test.awaitUnit());
    QVERIFY(!test.page->operationBar().isVisible());
}

void TestReadAndWrite::cancels()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    test.unit.at(
        [](QuadrelUnit::ControlUnit&, QuadrelUnit::UnitServer& server) { server.setLatency(100); });
    QSignalSpy progress(&test.workspace(), &UnitWorkspace::progressed);
    QTest::keyClick(&test.window, Qt::Key_F5);
    QVERIFY(progress.wait());
    auto* cancel = test.page->operationBar().findChild<QToolButton*>();
    QVERIFY(cancel->isVisible());
    QTest::mouseClick(cancel, Qt::LeftButton);
    QVERIFY(test.awaitUnit());
    QVERIFY2(message(test).contains(QStringLiteral("cancelled")), qPrintable(message(test)));
    QCOMPARE(test.contents().events->size(), sampleEvents);
}

void TestReadAndWrite::writesWhatHasChanged()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    const Contents before = test.stored();
    renameFirstEvent(test, QStringLiteral("Welcome"));
    pressWrite(test);
    QDialog* dialog = awaitDialog(test);
    QVERIFY(dialog);
    QCOMPARE(dialog->findChild<QLabel*>()->text(),
        QStringLiteral("Write 1 change(s) to %1?").arg(test.unit.address().toText()));
    QCOMPARE(dialog->findChild<DifferenceTree*>()->topLevelItemCount(), 1);
    QTest::keyClick(dialog, Qt::Key_Return);
    QVERIFY(test.awaitUnit());

    const Difference difference = compareContents(before, test.stored());
    QCOMPARE(difference.changes.size(), 1);
    QCOMPARE(*test.stored().events->at(0).name, QStringLiteral("Welcome"));
    QVERIFY(!test.workspace().isModified());
    QVERIFY(!test.workspace().differsFromUnit());
    const QuadrelWorkspace::Backups backups(test.folder.filePath(QStringLiteral("backups")));
    const auto backup = backups.newest(before.device->serialNumber);
    QVERIFY(backup);
    QCOMPARE(message(test),
        QStringLiteral("Written and read back. What the unit held before is in %1.")
            .arg(backup->path));

    // All of it back again.
    test.workspace().document().undoStack().undo();
    pressWrite(test);
    dialog = awaitDialog(test);
    QVERIFY(dialog);
    QTest::keyClick(dialog, Qt::Key_Return);
    QVERIFY(test.awaitUnit());
    QVERIFY(compareContents(before, test.stored()).isEmpty());
}

void TestReadAndWrite::writesNothingWhenToldNo()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    const Contents before = test.stored();
    renameFirstEvent(test, QStringLiteral("Welcome"));
    pressWrite(test);
    QDialog* dialog = awaitDialog(test);
    QVERIFY(dialog);
    QTest::keyClick(dialog, Qt::Key_Escape);
    QVERIFY(!test.workspace().isBusy());
    QVERIFY(compareContents(before, test.stored()).isEmpty());
    QVERIFY(test.workspace().isModified());
    test.workspace().document().undoStack().setClean();
}

void TestReadAndWrite::saysThatThereIsNothingToWrite()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    pressWrite(test);
    QDialog* dialog = awaitDialog(test);
    QVERIFY(dialog);
    QCOMPARE(dialog->findChild<QLabel*>()->text(),
        QStringLiteral("%1 holds all of this already; there is nothing to write.")
            .arg(test.unit.address().toText()));
    QCOMPARE(dialog->findChildren<QPushButton*>().size(), 1);
    dialog->reject();
}

void TestReadAndWrite::refusesErrors()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    renameFirstEvent(test, QStringLiteral("a$$b"));
    pressWrite(test);
    QDialog* dialog = awaitDialog(test);
    QVERIFY(dialog);
    QCOMPARE(dialog->findChild<QLabel*>()->text(),
        QStringLiteral("This can't be written to %1. Mend the errors first.")
            .arg(test.unit.address().toText()));
    QCOMPARE(dialog->findChildren<QPushButton*>().size(), 1);
    dialog->reject();
    test.workspace().document().undoStack().setClean();
}

void TestReadAndWrite::saysThatTheUnitHasChanged()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    qRegisterMetaType<QuadrelDocument::Plan>("QuadrelDocument::Plan");
    QSignalSpy ready(&test.workspace(), &UnitWorkspace::planReady);
    pressWrite(test);
    QVERIFY(ready.wait(UnitWindow::patience));
    QVERIFY(!ready.takeFirst().at(1).toBool());
    awaitDialog(test)->reject();

    // Another program writes, which takes the unit's locks: they are free.
    {
        QuadrelWorkspace::WorkOptions options;
        options.folders.locks = test.folder.filePath(QStringLiteral("locks"));
        options.folders.backups = test.folder.filePath(QStringLiteral("backups"));
        QuadrelWorkspace::UnitWork other(test.unit.address(), options);
        QVERIFY(QTest::qWaitFor([&other] { return bool(other.readDevice()); }));
        Contents wanted = other.read().contents;
        const Contents held = wanted;
        (*wanted.events)[1].description = QStringLiteral("Other");
        QVERIFY(other.apply(makePlan(wanted, held), QStringLiteral("other")));
    }
    pressWrite(test);
    QVERIFY2(ready.wait(UnitWindow::patience), qPrintable(message(test)));
    QVERIFY(ready.takeFirst().at(1).toBool());
    awaitDialog(test)->reject();
}

void TestReadAndWrite::saysWhatIsWhere_data()
{
    QTest::addColumn<QString>("fault");
    QTest::newRow("no answer") << "drop";
    QTest::newRow("cut") << "cut";
    QTest::newRow("closed") << "close";
    QTest::newRow("hangs") << "hang";
}

void TestReadAndWrite::saysWhatIsWhere()
{
    QFETCH(QString, fault);
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    renameFirstEvent(test, QStringLiteral("Welcome"));
    pressWrite(test);
    QDialog* dialog = awaitDialog(test);
    QVERIFY(dialog);
    // From within the write of the events on.
    const quint64 replies = test.replies();
    for (quint64 reply = replies + 2; reply < replies + 12; ++reply)
        test.addFault(QStringLiteral("%1@%2").arg(fault).arg(reply));
    QTest::keyClick(dialog, Qt::Key_Return);
    QVERIFY(test.awaitUnit());
    QVERIFY2(message(test).contains(QStringLiteral("what it held before is in ")),
        qPrintable(message(test)));
    QVERIFY2(
        message(test).contains(QStringLiteral("events: unknown, perhaps some old and some new")),
        qPrintable(message(test)));
    QVERIFY(test.workspace().isModified());

    // The same once more, and all is well.
    test.clearFaults();
    pressWrite(test);
    dialog = awaitDialog(test);
    QVERIFY(dialog);
    QTest::keyClick(dialog, Qt::Key_Return);
    QVERIFY(test.awaitUnit());
    QVERIFY(compareContents(test.contents(), test.stored()).isEmpty());
}

QTEST_MAIN(TestReadAndWrite)
#include "tst_readandwrite.moc"
