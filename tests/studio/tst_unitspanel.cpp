// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "failonwarnings.h"
#include "units/unitspanel.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QTreeWidget>

#include <unitdocument.h>

namespace {

/** Finds what the test wants, and sends nothing. */
class FakeSearch : public UnitSearch {
public:
    void start() override
    {
        ++starts;
        m_isRunning = true;
    }
    bool isRunning() const override { return m_isRunning; }
    void end()
    {
        m_isRunning = false;
        emit finished();
    }

    int starts = 0;

private:
    bool m_isRunning = false;
};

UnitAddress addressAt(const char* host)
{
    return {UnitAddress::Tcp, QString::fromLatin1(host), UnitAddress::defaultPort};
}

} // namespace

class TestUnitsPanel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { failOnWarnings(); }
    void countsWhatIsFound();
    void hasNoButtonWithoutASearch();
    void listsEachUnitOnce();
    void opensByReturn();
    void listsAnInventory();
    void refusesABrokenInventory();
};

void TestUnitsPanel::countsWhatIsFound()
{
    FakeSearch search;
    UnitsPanel panel(&search);
    panel.show();
    auto* button = panel.findChildren<QToolButton*>().first();
    const auto* state = panel.findChild<QLabel*>();
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(search.starts, 1);
    QVERIFY(!button->isEnabled());
    emit search.found({{addressAt("192.168.1.21"), QStringLiteral("A")}});
    QVERIFY2(
        state->text().startsWith(QStringLiteral("Searching, 1 found")), qPrintable(state->text()));
    emit search.found({{addressAt("192.168.1.21"), QStringLiteral("A")},
        {addressAt("192.168.1.22"), QStringLiteral("B")}});
    search.end();
    QCOMPARE(state->text(), QStringLiteral("2 found"));
    QVERIFY(button->isEnabled());
    QCOMPARE(panel.units(),
        QStringList({QStringLiteral("tcp://192.168.1.21:3801"),
            QStringLiteral("tcp://192.168.1.22:3801")}));
    QCOMPARE(panel.tree().topLevelItem(0)->child(1)->text(UnitsPanel::Model), QStringLiteral("B"));
    QCOMPARE(panel.tree().topLevelItem(0)->child(1)->text(UnitsPanel::State),
        QStringLiteral("reachable"));
}

void TestUnitsPanel::hasNoButtonWithoutASearch()
{
    UnitsPanel panel(nullptr);
    panel.show();
    QVERIFY(!panel.findChildren<QToolButton*>().first()->isVisible());
}

void TestUnitsPanel::listsEachUnitOnce()
{
    UnitsPanel panel(nullptr);
    panel.addUnit(addressAt("192.168.1.21"), QString());
    panel.addUnit(addressAt("192.168.1.21"), QStringLiteral("hall"));
    panel.addDocument(QStringLiteral("/a/hall.yaml"));
    panel.addDocument(QStringLiteral("/a/hall.yaml"));
    QCOMPARE(panel.units().size(), 1);
    QCOMPARE(panel.documents().size(), 1);
    panel.setUnitState(addressAt("192.168.1.21"), QStringLiteral("read"));
    const QTreeWidgetItem* unit = panel.tree().topLevelItem(0)->child(0);
    QCOMPARE(unit->text(UnitsPanel::Name), QStringLiteral("hall"));
    QCOMPARE(unit->text(UnitsPanel::State), QStringLiteral("read"));
}

void TestUnitsPanel::opensByReturn()
{
    UnitsPanel panel(nullptr);
    panel.addUnit(addressAt("192.168.1.21"), QString());
    panel.addDocument(QStringLiteral("/a/hall.yaml"));
    QSignalSpy units(&panel, &UnitsPanel::unitActivated);
    QSignalSpy documents(&panel, &UnitsPanel::documentActivated);
    panel.tree().setCurrentItem(panel.tree().topLevelItem(0)->child(0));
    QTest::keyClick(&panel.tree(), Qt::Key_Return);
    QCOMPARE(units.size(), 1);
    panel.tree().setCurrentItem(panel.tree().topLevelItem(1)->child(0));
    QTest::keyClick(&panel.tree(), Qt::Key_Return);
    QCOMPARE(documents.size(), 1);
    QCOMPARE(documents.first().first().toString(), QStringLiteral("/a/hall.yaml"));
}

void TestUnitsPanel::listsAnInventory()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("site.yaml"));
    QVERIFY(QuadrelDocument::saveText(
        path, "units:\n  - name: hall-1\n    address: tcp://192.168.1.21\n    model: 0x7209\n")
                .isEmpty());
    UnitsPanel panel(nullptr);
    QCOMPARE(panel.addInventory(path), QStringList());
    const QTreeWidgetItem* unit = panel.tree().topLevelItem(0)->child(0);
    QCOMPARE(unit->text(UnitsPanel::Name), QStringLiteral("hall-1"));
    QCOMPARE(unit->text(UnitsPanel::Model), QStringLiteral("0x7209"));
}

void TestUnitsPanel::refusesABrokenInventory()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("site.yaml"));
    QVERIFY(QuadrelDocument::saveText(path, "units: 7\n").isEmpty());
    UnitsPanel panel(nullptr);
    const QStringList errors = panel.addInventory(path);
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.first().startsWith(path + QStringLiteral(":1:")), qPrintable(errors.first()));
    QVERIFY(panel.units().isEmpty());
}

QTEST_MAIN(TestUnitsPanel)
#include "tst_unitspanel.moc"
