// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "failonwarnings.h"
#include "logpage/logpage.h"
#include "mainwindow/language.h"
#include "models/sectionmodel.h"
#include "pages/comparisonpage.h"
#include "pages/firmwarepage.h"
#include "pages/operationbar.h"
#include "pages/overviewpage.h"
#include "pages/tablepage.h"
#include "unitwindow.h"
#include "views/differencetree.h"

#include <clocktime.h>
#include <contentsdifference.h>

#include <QtGui/QAccessible>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

using namespace QuadrelDocument;

namespace {

QString message(const UnitWindow& test)
{
    return test.page->operationBar().findChild<QLabel*>()->text();
}

/** Clicks the button of the dialog that says so; false without one. */
bool answer(const UnitWindow& test, const QString& text)
{
    for (const auto* dialog : test.window.findChildren<QDialog*>()) {
        for (auto* button : dialog->findChildren<QPushButton*>()) {
            if (dialog->isVisible() && button->text() == text && button->isEnabled()) {
                button->click();
                return true;
            }
        }
    }
    return false;
}

} // namespace

class TestUnitActions : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { failOnWarnings(); }
    void setsTheClock();
    void setsTheNetworkAddress();
    void restarts();
    void doesNothingWithoutConsent();
    void refusesFilesThatAreNoImages();
    void takesOneChange();
    void logsFrames();
    void switchesTheLanguage();
    void hasAccessibleNames();
};

void TestUnitActions::setsTheClock()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    test.page->overview().askToSetClock();
    QVERIFY(answer(test, QStringLiteral("Set")));
    QVERIFY(test.workspace().isBusy());
    QVERIFY(test.awaitUnit());
    QCOMPARE(message(test), QStringLiteral("The clock was set."));
    const QDateTime time = QuadrelWorkspace::clockTime(test.workspace().clock());
    QVERIFY(qAbs(time.secsTo(QDateTime::currentDateTime())) < 60);
}

void TestUnitActions::setsTheNetworkAddress()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    test.page->overview().askForNetwork();
    auto* dialog = test.window.findChild<QDialog*>();
    auto* ip = dialog->findChildren<QLineEdit*>().first();
    ip->setText(QStringLiteral("192.168.1"));
    QVERIFY(!answer(test, QStringLiteral("Set the address")));
    ip->setText(QStringLiteral("10.0.0.9"));
    QVERIFY2(!answer(test, QStringLiteral("Set the address")), "the gateway is in another network");
    ip->setText(QStringLiteral("192.168.1.55"));
    QVERIFY(answer(test, QStringLiteral("Set the address")));
    QVERIFY(test.awaitUnit());
    QCOMPARE(message(test), QStringLiteral("The unit has taken the new address."));
    QCOMPARE(test.stored().device->ip, QStringLiteral("192.168.1.55"));
}

void TestUnitActions::restarts()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    test.page->overview().askToRestart();
    QVERIFY(answer(test, QStringLiteral("Restart")));
    QVERIFY(test.awaitUnit());
    QCOMPARE(message(test), QStringLiteral("The unit restarts."));
}

void TestUnitActions::doesNothingWithoutConsent()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    const quint64 replies = test.replies();
    test.page->overview().askToRestartWithDefault();
    test.window.findChild<QDialog*>()->reject();
    QVERIFY(!test.workspace().isBusy());
    QCOMPARE(test.replies(), replies);
}

void TestUnitActions::refusesFilesThatAreNoImages()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    const QString path = test.folder.filePath(QStringLiteral("image.bin"));
    QVERIFY(saveText(path, "This is a text, and so no image.\n").isEmpty());
    FirmwarePage& page = test.page->firmware();
    page.setFiles(path, path, QString());
    page.askToUpgrade();
    bool isSaid = false;
    for (const auto* label : page.findChildren<QLabel*>())
        isSaid = isSaid
            || label->text().contains(
                QStringLiteral("%1: this is text, and not an image").arg(path));
    QVERIFY(isSaid);
    QVERIFY(!test.window.findChild<QDialog*>());
}

void TestUnitActions::takesOneChange()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    const Contents read = test.contents();
    SectionModel& events = test.page->table(Section::Events).model();
    const int column = events.columnOf(QStringLiteral("description"));
    events.setData(events.index(0, column), QStringLiteral("First"), Qt::EditRole);
    events.setData(events.index(1, column), QStringLiteral("Second"), Qt::EditRole);

    ComparisonPage& page = test.page->comparison();
    test.page->showPage(page);
    auto* tree = page.findChild<DifferenceTree*>();
    QCOMPARE(tree->topLevelItemCount(), 2);
    tree->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
    page.takeChosen();
    QCOMPARE(test.contents().events->at(0), read.events->at(0));
    QCOMPARE(test.contents().events->at(1).description, QStringLiteral("Second"));
    QCOMPARE(tree->topLevelItemCount(), 1);
    test.workspace().document().undoStack().undo();
    QCOMPARE(test.contents().events->at(0).description, QStringLiteral("First"));
    test.workspace().document().undoStack().setClean();
}

void TestUnitActions::logsFrames()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    LogPage& page = test.page->log();
    test.page->showPage(page);
    QTRY_VERIFY(page.findChild<QPlainTextEdit*>()->blockCount() > 10);
    const QString path = test.folder.filePath(QStringLiteral("support.log"));
    QString error;
    QVERIFY2(page.save(path, error), qPrintable(error));
    QVERIFY(QFileInfo(path).size() > 1000);
}

void TestUnitActions::switchesTheLanguage()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    const auto* restart = test.page->overview().findChildren<QPushButton*>().at(3);
    Language::install(QStringLiteral("zh"));
    QCoreApplication::processEvents();
    const QString chinese = restart->text();
    const QString header = test.page->table(Section::Events)
                               .model()
                               .headerData(1, Qt::Horizontal, Qt::DisplayRole)
                               .toString();
    Language::install(QStringLiteral("en"));
    QCoreApplication::processEvents();
    QCOMPARE(restart->text(), QStringLiteral("Restart..."));
    QCOMPARE(chinese, QString::fromUtf8("重启..."));
    QCOMPARE(header, QString::fromUtf8("名称"));
}

void TestUnitActions::hasAccessibleNames()
{
    UnitWindow test;
    QVERIFY(test.awaitUnit());
    QStringList nameless;
    for (QWidget* widget : test.window.findChildren<QWidget*>()) {
        const bool isInner = QByteArray(widget->objectName().toLatin1()).startsWith("qt_");
        if (isInner || widget->focusPolicy() == Qt::NoFocus || widget->focusProxy())
            continue;
        QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
        if (!accessible || !accessible->text(QAccessible::Name).isEmpty())
            continue;
        nameless.append(
            QStringLiteral("%1 in %2")
                .arg(QString::fromLatin1(widget->metaObject()->className()),
                    QString::fromLatin1(widget->parentWidget()->metaObject()->className())));
    }
    nameless.removeDuplicates();
    QVERIFY2(nameless.isEmpty(), qPrintable(nameless.join(QLatin1Char('\n'))));
}

QTEST_MAIN(TestUnitActions)
#include "tst_unitactions.moc"
