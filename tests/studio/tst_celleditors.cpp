// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "controls.h"
#include "failonwarnings.h"

#include "editors/choiceeditor.h"
#include "editors/dateeditor.h"
#include "editors/daterangeeditor.h"
#include "editors/delayeditor.h"
#include "editors/texteditor.h"
#include "editors/timeeditor.h"
#include "editors/unitdates.h"
#include "editors/weekdayeditor.h"
#include "editors/weekdays.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDateTimeEdit>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>

using Days = QVector<int>;

namespace {

QVariant days(const Days& numbers)
{
    return QVariant::fromValue(numbers);
}

QStringList labelsOf(const QWidget& editor)
{
    QStringList texts;
    for (const QLabel* label : editor.findChildren<QLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty())
            texts.append(label->text());
    }
    return texts;
}

} // namespace

class TestCellEditors : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void readsUnitDates_data();
    void readsUnitDates();
    void mapsWeekdays_data();
    void mapsWeekdays();
    void countsText_data();
    void countsText();
    void keepsTextOfSeveralLines();
    void showsDelays_data();
    void showsDelays();
    void keepsTheDelayWhenTheUnitChanges();
    void keepsDelaysInRange();
    void togglesWeekdays();
    void keepsNumbersThatAreNoDay();
    void editsTimes();
    void editsDates();
    void keepsStamps_data();
    void keepsStamps();
    void switchesForever();
    void editsDateRanges();
    void choosesByKeys();
    void keepsValuesThatAreNoChoice();
    void takesTypedNumbers_data();
    void takesTypedNumbers();
    void offersTheChoicesOfAUnit();
    void hasNames();
};

void TestCellEditors::initTestCase()
{
    failOnWarnings();
}

void TestCellEditors::readsUnitDates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    QTest::newRow("usual") << "2024/03/07" << QDate(2024, 3, 7);
    QTest::newRow("a year of one digit") << "206/09/27" << QDate(2006, 9, 27);
    QTest::newRow("first") << "200/01/01" << QDate(2000, 1, 1);
    QTest::newRow("last") << "2099/12/31" << QDate(2099, 12, 31);
    QTest::newRow("leap day") << "2024/02/29" << QDate(2024, 2, 29);
    QTest::newRow("no leap day") << "2023/02/29" << QDate();
    QTest::newRow("empty") << "" << QDate();
    QTest::newRow("strange bytes") << "20165/165/165" << QDate();
}

void TestCellEditors::readsUnitDates()
{
    QFETCH(QString, text);
    QFETCH(QDate, date);
    QCOMPARE(UnitDates::dateOf(text), date);
    if (date.isValid())
        QCOMPARE(UnitDates::textOf(date), text);
}

void TestCellEditors::mapsWeekdays_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("day");
    QTest::newRow("first") << 1 << int(Qt::Monday) << int(Qt::Monday);
    QTest::newRow("last") << 7 << int(Qt::Monday) << int(Qt::Sunday);
    QTest::newRow("from Sunday") << 1 << int(Qt::Sunday) << int(Qt::Sunday);
    QTest::newRow("from Sunday, last") << 7 << int(Qt::Sunday) << int(Qt::Saturday);
    QTest::newRow("from Wednesday") << 6 << int(Qt::Wednesday) << int(Qt::Monday);
}

void TestCellEditors::mapsWeekdays()
{
    QFETCH(int, number);
    QFETCH(int, first);
    const auto firstDay = static_cast<Qt::DayOfWeek>(first);
    const Qt::DayOfWeek day = Weekdays::dayOf(number, firstDay);
    QTEST(int(day), "day");
    QCOMPARE(Weekdays::numberOf(day, firstDay), number);
}

void TestCellEditors::countsText_data()
{
    QTest::addColumn<int>("alsoUsed");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("left");
    QTest::newRow("none") << 0 << ""
                          << "32 left";
    QTest::newRow("some") << 0 << "Lights out"
                          << "22 left";
    QTest::newRow("Chinese") << 0 << QString::fromUtf8("每天开灯") << "28 left";
    QTest::newRow("a pair of units") << 0 << QString::fromUtf8("💡") << "30 left";
    QTest::newRow("with others") << 30 << "ab"
                                 << "0 left";
    QTest::newRow("too long") << 0 << QString(40, QLatin1Char('a')) << "8 too many";
}

void TestCellEditors::countsText()
{
    QFETCH(int, alsoUsed);
    QFETCH(QString, text);
    TextEditor editor(32, alsoUsed);
    QVERIFY(showActive(editor));
    auto* line = controlNamed<QLineEdit>(editor, QStringLiteral("Text"));
    typeInto(line, text);
    QCOMPARE(editor.value().toString(), text);
    QFETCH(QString, left);
    QCOMPARE(labelsOf(editor), QStringList(left));
    QCOMPARE(line->accessibleDescription(), left);
}

/** A line edit replaces line ends; what nobody typed into stays as it was. */
void TestCellEditors::keepsTextOfSeveralLines()
{
    TextEditor editor(32);
    editor.setValue(QStringLiteral("one\ntwo"));
    QCOMPARE(editor.value().toString(), QStringLiteral("one\ntwo"));
    auto* line = controlNamed<QLineEdit>(editor, QStringLiteral("Text"));
    QTest::keyClicks(line, QStringLiteral("!"));
    QVERIFY(editor.value().toString().endsWith(QLatin1String("two!")));
}

void TestCellEditors::showsDelays_data()
{
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("unit");
    QTest::newRow("none") << 0 << 0.0 << "ms";
    QTest::newRow("milliseconds") << 255 << 255.0 << "ms";
    QTest::newRow("half a second") << 500 << 500.0 << "ms";
    QTest::newRow("seconds") << 30000 << 30.0 << "s";
    QTest::newRow("a minute") << 60000 << 1.0 << "min";
    QTest::newRow("the longest") << 65535 << 65535.0 << "ms";
}

void TestCellEditors::showsDelays()
{
    QFETCH(int, milliseconds);
    DelayEditor editor;
    editor.setValue(milliseconds);
    QTEST(controlNamed<QDoubleSpinBox>(editor, QStringLiteral("Delay"))->value(), "number");
    QTEST(controlNamed<QComboBox>(editor, QStringLiteral("Unit of time"))->currentText(), "unit");
    QCOMPARE(editor.value().toInt(), milliseconds);
}

void TestCellEditors::keepsTheDelayWhenTheUnitChanges()
{
    for (int milliseconds = 0; milliseconds <= 65535; milliseconds += 97) {
        DelayEditor editor;
        editor.setValue(milliseconds);
        auto* number = controlNamed<QDoubleSpinBox>(editor, QStringLiteral("Delay"));
        auto* unit = controlNamed<QComboBox>(editor, QStringLiteral("Unit of time"));
        for (const int place : {2, 1, 0, 2}) {
            unit->setCurrentIndex(place);
            // What is shown says the same, and not only what is remembered.
            const double shown = number->value();
            number->setValue(0);
            number->setValue(shown);
            QCOMPARE(editor.value().toInt(), milliseconds);
        }
    }
}

void TestCellEditors::keepsDelaysInRange()
{
    DelayEditor editor;
    QVERIFY(showActive(editor));
    auto* number = controlNamed<QDoubleSpinBox>(editor, QStringLiteral("Delay"));
    editor.setValue(60000);
    number->setFocus();
    number->selectAll();
    QTest::keyClicks(number, QStringLiteral("1.5"));
    QTest::keyClick(number, Qt::Key_Tab);
    QCOMPARE(editor.value().toInt(), 60000);
    number->setFocus();
    number->selectAll();
    QTest::keyClicks(number, QStringLiteral("1.05"));
    QCOMPARE(editor.value().toInt(), 63000);

    // A unit can't hold it, but a document can, until somebody changes it.
    editor.setValue(70000);
    QCOMPARE(editor.value().toInt(), 70000);
    editor.setValue(QVariant());
    QVERIFY(!editor.value().isValid());
}

void TestCellEditors::togglesWeekdays()
{
    WeekdayEditor editor(Qt::Sunday);
    QVERIFY(showActive(editor));
    editor.setValue(days({2, 4}));
    const auto buttons = editor.findChildren<QToolButton*>();
    QCOMPARE(buttons.size(), 7);
    QCOMPARE(buttons.first()->accessibleName(), QStringLiteral("Sunday"));
    QVERIFY(controlNamed<QToolButton>(editor, QStringLiteral("Monday"))->isChecked());
    QVERIFY(controlNamed<QToolButton>(editor, QStringLiteral("Wednesday"))->isChecked());

    buttons.first()->setFocus();
    QTest::keyClick(buttons.first(), Qt::Key_Space);
    QTest::mouseClick(controlNamed<QToolButton>(editor, QStringLiteral("Monday")), Qt::LeftButton);
    QCOMPARE(editor.value().value<Days>(), Days({1, 4}));
    buttons.first()->setFocus();
    for (const QToolButton* button : buttons) {
        QCOMPARE(QApplication::focusWidget(), button);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

void TestCellEditors::keepsNumbersThatAreNoDay()
{
    WeekdayEditor editor(Qt::Monday);
    editor.setValue(days({1, 8}));
    QCOMPARE(editor.value().value<Days>(), Days({1, 8}));
    auto* eighth = controlNamed<QToolButton>(editor, QStringLiteral("Number 8, which is no day"));
    QVERIFY(eighth);
    eighth->click();
    QCOMPARE(editor.value().value<Days>(), Days({1}));
    editor.setValue(days({0, 200}));
    QCOMPARE(editor.value().value<Days>(), Days({0, 200}));
}

void TestCellEditors::editsTimes()
{
    TimeEditor editor;
    QVERIFY(showActive(editor));
    editor.setValue(QStringLiteral("08:05"));
    auto* time = controlNamed<QTimeEdit>(editor, QStringLiteral("Time of day"));
    time->setFocus();
    time->setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(time, QStringLiteral("2359"));
    QCOMPARE(editor.value().toString(), QStringLiteral("23:59"));
}

void TestCellEditors::editsDates()
{
    DateEditor editor(DateEditor::Day);
    QVERIFY(showActive(editor));
    editor.setValue(QStringLiteral("206/09/27"));
    auto* date = controlNamed<QDateEdit>(editor, QStringLiteral("Date"));
    date->setFocus();
    date->setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClick(date, Qt::Key_Up);
    QCOMPARE(editor.value().toString(), QStringLiteral("206/09/28"));
    QVERIFY(!controlNamed<QCheckBox>(editor, QStringLiteral("Forever"))->isVisible());
}

void TestCellEditors::keepsStamps_data()
{
    QTest::addColumn<bool>("isTime");
    QTest::addColumn<QString>("stamp");
    QTest::addColumn<QStringList>("labels");
    QTest::newRow("time") << true << "08:05" << QStringList();
    QTest::newRow("no time") << true << "25:70" << QStringList(QStringLiteral("not “25:70”"));
    QTest::newRow("no time at all") << true << "" << QStringList();
    QTest::newRow("date") << false << "2024/03/07" << QStringList();
    QTest::newRow("no date") << false << "2023/02/30"
                             << QStringList(QStringLiteral("not “2023/02/30”"));
}

void TestCellEditors::keepsStamps()
{
    QFETCH(bool, isTime);
    QFETCH(QString, stamp);
    std::unique_ptr<CellEditor> editor;
    if (isTime)
        editor = std::make_unique<TimeEditor>();
    else
        editor = std::make_unique<DateEditor>(DateEditor::Day);
    QVERIFY(showActive(*editor));
    editor->setValue(stamp);
    QCOMPARE(editor->value().toString(), stamp);
    QTEST(labelsOf(*editor), "labels");
}

void TestCellEditors::switchesForever()
{
    DateEditor editor(DateEditor::DayOrForever);
    QVERIFY(showActive(editor));
    editor.setValue(QVariant());
    auto* date = controlNamed<QDateEdit>(editor, QStringLiteral("Date"));
    auto* box = controlNamed<QCheckBox>(editor, QStringLiteral("Forever"));
    QVERIFY(box->isChecked());
    QVERIFY(!date->isEnabled());
    QVERIFY(!editor.value().isValid());
    editor.setFocus();
    QVERIFY(box->hasFocus());

    QTest::keyClick(box, Qt::Key_Space);
    date->setDate({2026, 6, 30});
    QCOMPARE(editor.value().toString(), QStringLiteral("2026/06/30"));
    QTest::keyClick(box, Qt::Key_Space);
    QVERIFY(!editor.value().isValid());
}

void TestCellEditors::editsDateRanges()
{
    DateRangeEditor editor;
    QVERIFY(showActive(editor));
    const DateRange range{QStringLiteral("2024/02/28"), QStringLiteral("2024/03/01")};
    editor.setValue(QVariant::fromValue(range));
    QVERIFY(editor.value().value<DateRange>() == range);
    QVERIFY(labelsOf(editor).contains(QStringLiteral("3 day(s)")));
    const DateRange endless{QStringLiteral("2024/02/28"), std::nullopt};
    editor.setValue(QVariant::fromValue(endless));
    QVERIFY(editor.value().value<DateRange>() == endless);
    const DateRange turned{QStringLiteral("2024/02/28"), QStringLiteral("2024/02/27")};
    editor.setValue(QVariant::fromValue(turned));
    QVERIFY(
        labelsOf(editor).contains(QStringLiteral("It ends before it begins, and never fires.")));
}

void TestCellEditors::choosesByKeys()
{
    ChoiceEditor editor(Choices::levels());
    QVERIFY(showActive(editor));
    editor.setValue(int(QuadrelDocument::Level::High));
    auto* box = controlNamed<QComboBox>(editor, QStringLiteral("Choices"));
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(editor.value(), QVariant(int(QuadrelDocument::Level::Low)));
    QTest::keyClick(box, Qt::Key_N);
    QVERIFY(!editor.value().isValid());
    editor.setValue(int(QuadrelDocument::Level::Low));
    QCOMPARE(box->currentText(), QStringLiteral("Low"));
    editor.setValue(QVariant());
    QCOMPARE(box->currentText(), QStringLiteral("None"));
}

void TestCellEditors::keepsValuesThatAreNoChoice()
{
    ChoiceEditor editor(Choices::ioTypes());
    editor.setValue(77);
    QCOMPARE(editor.value().toInt(), 77);
    QCOMPARE(editor.problem(), QString());
}

void TestCellEditors::takesTypedNumbers_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("problem");
    QTest::newRow("a choice") << "9600" << 9600 << "";
    QTest::newRow("another number") << "31250" << 31250 << "";
    QTest::newRow("least") << "0" << 0 << "";
    QTest::newRow("below") << "-1" << -1 << "“-1” is no number from 0 to 2147483647.";
    QTest::newRow("above") << "2147483648" << 0
                           << "“2147483648” is no number from 0 to 2147483647.";
    QTest::newRow("a word") << "fast" << 0 << "“fast” is no number from 0 to 2147483647.";
}

void TestCellEditors::takesTypedNumbers()
{
    QFETCH(QString, typed);
    ChoiceEditor editor(Choices::baudRates());
    editor.allowNumbers(0, std::numeric_limits<int>::max());
    QVERIFY(showActive(editor));
    editor.setValue(115200);
    auto* line = controlNamed<QLineEdit>(editor, QStringLiteral("Number"));
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, typed);
    QTEST(editor.value().toInt(), "value");
    QTEST(editor.problem(), "problem");
    QCOMPARE(line->text(), typed);
}

void TestCellEditors::offersTheChoicesOfAUnit()
{
    using namespace QuadrelDocument;
    QCOMPARE(Choices::lines(TriggerKind::Com).size(), triggerLineCount);
    QCOMPARE(Choices::lines(TriggerKind::Com, 9).last().text, QStringLiteral("COM C-1"));
    QCOMPARE(Choices::lines(TriggerKind::Io, 1000).last().text, QStringLiteral("IO D-4"));
    QCOMPARE(Choices::repeats().at(int(Repeat::Once)).value.toInt(), int(Repeat::Once));
    QCOMPARE(Choices::kinds().at(int(TriggerKind::Io)).value.toInt(), int(TriggerKind::Io));
    QCOMPARE(Choices::inspections().last().value.toInt(), SerialPort().inspection);
    QCOMPARE(Choices::dataBits().last().value.toInt(), SerialPort().dataBits);
    QCOMPARE(Choices::stopBits().first().value.toInt(), SerialPort().stopBits);
}

void TestCellEditors::hasNames()
{
    TextEditor text(32);
    DelayEditor delay;
    WeekdayEditor weekdays(Qt::Monday);
    TimeEditor time;
    DateRangeEditor dates;
    ChoiceEditor number(Choices::baudRates());
    number.allowNumbers(0, 1);
    for (const QWidget* editor : {static_cast<QWidget*>(&text), static_cast<QWidget*>(&delay),
             static_cast<QWidget*>(&weekdays), static_cast<QWidget*>(&time),
             static_cast<QWidget*>(&dates), static_cast<QWidget*>(&number)})
        QCOMPARE(controlsWithoutName(*editor), QStringList());
}

QTEST_MAIN(TestCellEditors)
#include "tst_celleditors.moc"
