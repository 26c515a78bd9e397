// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "controls.h"
#include "failonwarnings.h"

#include "editors/eventpicker.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>

using namespace QuadrelDocument;
using Ids = QVector<int>;

namespace {

Event named(int id, const QString& name, const QString& description = QString())
{
    Event event;
    event.id = id;
    event.name = name;
    event.description = description;
    return event;
}

EventNames someNames()
{
    Event nameless = named(12, QString(), QStringLiteral("Mute the\namplifier"));
    nameless.name.reset();
    Event bare = nameless;
    bare.id = 200;
    bare.description.clear();
    return EventNames(
        {named(1, QStringLiteral("Lights on")), named(2, QStringLiteral("Lights out")), nameless,
            bare, named(1, QStringLiteral("doubled"))});
}

QStringList textsOf(const QListWidget* list)
{
    QStringList texts;
    for (int row = 0; row < list->count(); ++row)
        texts.append(list->item(row)->text());
    return texts;
}

} // namespace

class TestEventPicker : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void namesEvents();
    void searches_data();
    void searches();
    void picksByKeys();
    void picksByMouse();
    void ordersByKeys();
    void keepsMissingAndDoubledIds();
    void picksANumberThatNoEventHas();
    void picksOne();
    void leavesReturnWithoutASearchAlone();
    void keepsTabInside();
    void hasNames();

private:
    Ids value() const { return m_picker->value().value<Ids>(); }
    QLineEdit* search() const
    {
        return controlNamed<QLineEdit>(*m_picker, QStringLiteral("Search for events"));
    }
    QListWidget* found() const
    {
        return controlNamed<QListWidget>(*m_picker, QStringLiteral("Events"));
    }
    QListWidget* chosen() const
    {
        return controlNamed<QListWidget>(
            *m_picker, QStringLiteral("Chosen events, in the order in which they run"));
    }

    std::unique_ptr<EventPicker> m_picker;
};

void TestEventPicker::initTestCase()
{
    failOnWarnings();
}

void TestEventPicker::init()
{
    m_picker = std::make_unique<EventPicker>(someNames());
    QVERIFY(showActive(*m_picker));
    search()->setFocus();
}

void TestEventPicker::cleanup()
{
    m_picker.reset();
}

void TestEventPicker::namesEvents()
{
    const EventNames names = someNames();
    QCOMPARE(names.ids(), Ids({1, 2, 12, 200}));
    QCOMPARE(names.title(1), QStringLiteral("1 Lights on"));
    QCOMPARE(names.title(12), QStringLiteral("12 Mute the amplifier"));
    QCOMPARE(names.title(200), QStringLiteral("200"));
    QCOMPARE(names.title(7), QStringLiteral("7 (missing)"));
}

void TestEventPicker::searches_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("titles");
    QTest::addColumn<QString>("current");
    QTest::newRow("nothing") << ""
                             << QStringList(
                                    {"1 Lights on", "2 Lights out", "12 Mute the amplifier", "200"})
                             << "1 Lights on";
    QTest::newRow("name") << "LIGHT" << QStringList({"1 Lights on", "2 Lights out"})
                          << "1 Lights on";
    QTest::newRow("number") << "2" << QStringList({"2 Lights out", "200"}) << "2 Lights out";
    QTest::newRow("number without an event")
        << "20" << QStringList({"200", "20 (missing)"}) << "20 (missing)";
    QTest::newRow("no number of an event") << "256" << QStringList() << "";
    QTest::newRow("nothing found") << "zebra" << QStringList() << "";
    QTest::newRow("no pattern") << ".*" << QStringList() << "";
}

void TestEventPicker::searches()
{
    QFETCH(QString, typed);
    QTest::keyClicks(search(), typed);
    QTEST(textsOf(found()), "titles");
    QFETCH(QString, current);
    QCOMPARE(found()->currentItem() ? found()->currentItem()->text() : QString(), current);
}

void TestEventPicker::picksByKeys()
{
    QSignalSpy edits(m_picker.get(), &CellEditor::edited);
    QTest::keyClicks(search(), QStringLiteral("out"));
    QTest::keyClick(search(), Qt::Key_Return);
    QCOMPARE(value(), Ids({2}));
    // The found word is selected, so that the next one replaces it.
    QTest::keyClicks(search(), QStringLiteral("mute"));
    QTest::keyClick(search(), Qt::Key_Down);
    QVERIFY(found()->hasFocus());
    QTest::keyClick(found(), Qt::Key_Return);
    QTest::keyClick(found(), Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(value(), Ids({2, 12, 12}));
    QCOMPARE(edits.size(), 3);
}

void TestEventPicker::picksByMouse()
{
    const QRect place = found()->visualItemRect(found()->item(1));
    QTest::mouseClick(found()->viewport(), Qt::LeftButton, {}, place.center());
    QTest::mouseClick(
        controlNamed<QPushButton>(*m_picker, QStringLiteral("Add the event")), Qt::LeftButton);
    QCOMPARE(value(), Ids({2}));
    QTest::mouseDClick(found()->viewport(), Qt::LeftButton, {}, place.center());
    QCOMPARE(value(), Ids({2, 2}));
}

void TestEventPicker::ordersByKeys()
{
    m_picker->setValue(QVariant::fromValue(Ids({1, 2, 12})));
    chosen()->setFocus();
    chosen()->setCurrentRow(2);
    QTest::keyClick(chosen(), Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(value(), Ids({1, 12, 2}));
    QTest::keyClick(chosen(), Qt::Key_Up, Qt::AltModifier);
    QTest::keyClick(chosen(), Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(value(), Ids({12, 1, 2}));
    QTest::keyClick(chosen(), Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(value(), Ids({1, 12, 2}));
    QTest::keyClick(chosen(), Qt::Key_Delete);
    QCOMPARE(value(), Ids({1, 2}));
    controlNamed<QPushButton>(*m_picker, QStringLiteral("Run the event earlier"))->click();
    QCOMPARE(value(), Ids({2, 1}));
    controlNamed<QPushButton>(*m_picker, QStringLiteral("Run the event later"))->click();
    QCOMPARE(value(), Ids({1, 2}));
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(chosen(), Qt::Key_Delete);
    QCOMPARE(value(), Ids());
}

void TestEventPicker::keepsMissingAndDoubledIds()
{
    const Ids ids{2, 77, 2, -5, 300};
    m_picker->setValue(QVariant::fromValue(ids));
    QCOMPARE(value(), ids);
    QCOMPARE(textsOf(chosen()),
        QStringList(
            {"2 Lights out", "77 (missing)", "2 Lights out", "-5 (missing)", "300 (missing)"}));
}

void TestEventPicker::picksANumberThatNoEventHas()
{
    QTest::keyClicks(search(), QStringLiteral("77"));
    QTest::keyClick(search(), Qt::Key_Return);
    QCOMPARE(value(), Ids({77}));
}

void TestEventPicker::picksOne()
{
    EventPicker picker(someNames(), EventPicker::One);
    QVERIFY(showActive(picker));
    auto* line = controlNamed<QLineEdit>(picker, QStringLiteral("Search for events"));
    for (const char* word : {"on", "out"}) {
        QTest::keyClicks(line, QString::fromLatin1(word));
        QTest::keyClick(line, Qt::Key_Return);
    }
    QCOMPARE(picker.value().value<Ids>(), Ids({2}));
}

/** In a table, Return twice is: take this one, and done. */
void TestEventPicker::leavesReturnWithoutASearchAlone()
{
    QTest::keyClicks(search(), QStringLiteral("out"));
    QTest::keyClick(search(), Qt::Key_Return);
    QTest::keyClick(search(), Qt::Key_Return);
    QCOMPARE(value(), Ids({2}));
    search()->clear();
    QTest::keyClick(search(), Qt::Key_Return);
    QCOMPARE(value(), Ids({2}));
}

void TestEventPicker::keepsTabInside()
{
    m_picker->setValue(QVariant::fromValue(Ids({1, 2})));
    QSignalSpy left(m_picker.get(), &CellEditor::leftByTab);
    QTest::keyClick(search(), Qt::Key_Tab);
    QVERIFY(found()->hasFocus());
    QTest::keyClick(found(), Qt::Key_Backtab);
    QVERIFY(search()->hasFocus());
    QCOMPARE(left.size(), 0);
    QTest::keyClick(search(), Qt::Key_Backtab);
    QCOMPARE(left.size(), 1);
    QCOMPARE(left.first().first().toBool(), false);
}

void TestEventPicker::hasNames()
{
    QCOMPARE(controlsWithoutName(*m_picker), QStringList());
}

QTEST_MAIN(TestEventPicker)
#include "tst_eventpicker.moc"
