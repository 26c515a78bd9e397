// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "controls.h"
#include "failonwarnings.h"

#include "editors/byteseditor.h"
#include "editors/celldelegate.h"
#include "editors/choiceeditor.h"
#include "editors/dateeditor.h"
#include "editors/daterangeeditor.h"
#include "editors/delayeditor.h"
#include "editors/editorrequest.h"
#include "editors/eventpicker.h"
#include "editors/texteditor.h"
#include "editors/timeeditor.h"
#include "editors/weekdayeditor.h"

#include <QtGui/QStandardItemModel>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTableView>

class TestCellDelegate : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void makesTheEditorOfTheRole_data();
    void makesTheEditorOfTheRole();
    void makesTheUsualEditorWithoutTheRole();
    void commitsByReturn();
    void leavesByTab();
    void cancelsByEscape();
    void keepsUnfinishedInputOpen();
    void keepsUnfinishedInputWhenLeft();
    void keepsInputWhenTheModelTellsOfTheCell();
    void writesOnlyChanges();
    void fitsTheTable();

private:
    QModelIndex cell(int row, int column) const { return m_model->index(row, column); }
    CellEditor* open(const QModelIndex& index);
    void request(const QModelIndex& index, const EditorRequest& editor, const QVariant& value);
    QPlainTextEdit* hex() const
    {
        return controlNamed<QPlainTextEdit>(*m_view, QStringLiteral("Hexadecimal digits"));
    }
    CellEditor* editor() const { return m_view->findChild<CellEditor*>(); }

    std::unique_ptr<QStandardItemModel> m_model;
    std::unique_ptr<QTableView> m_view;
    CellDelegate* m_delegate = nullptr;
};

void TestCellDelegate::initTestCase()
{
    failOnWarnings();
}

void TestCellDelegate::init()
{
    m_model = std::make_unique<QStandardItemModel>(3, 3);
    m_model->setHorizontalHeaderLabels({"Command", "Events", "Text"});
    m_view = std::make_unique<QTableView>();
    m_delegate = new CellDelegate(m_view.get());
    m_view->setModel(m_model.get());
    m_view->setItemDelegate(m_delegate);
    m_view->resize(700, 400);
    EditorRequest bytes;
    bytes.kind = EditorRequest::Bytes;
    bytes.limit = 319;
    for (int row = 0; row < 3; ++row)
        request(cell(row, 0), bytes, QByteArray("A"));
    QVERIFY(showActive(*m_view));
}

void TestCellDelegate::cleanup()
{
    m_view.reset();
    m_model.reset();
}

void TestCellDelegate::request(
    const QModelIndex& index, const EditorRequest& editor, const QVariant& value)
{
    m_model->setData(index, QVariant::fromValue(editor), EditorRequest::role);
    m_model->setData(index, value, Qt::EditRole);
}

CellEditor* TestCellDelegate::open(const QModelIndex& index)
{
    m_view->setFocus();
    m_view->setCurrentIndex(index);
    QTest::keyClick(m_view.get(), Qt::Key_F2);
    return editor();
}

void TestCellDelegate::makesTheEditorOfTheRole_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QByteArray>("className");
    const auto ids = QVariant::fromValue(QVector<int>{3, 1});
    const auto range = QVariant::fromValue(DateRange{QStringLiteral("2024/01/01"), std::nullopt});
    QTest::newRow("text") << int(EditorRequest::Text) << QVariant("a") << QByteArray("TextEditor");
    QTest::newRow("bytes") << int(EditorRequest::Bytes) << QVariant(QByteArray("a"))
                           << QByteArray("BytesEditor");
    QTest::newRow("events") << int(EditorRequest::Events) << ids << QByteArray("EventPicker");
    QTest::newRow("event") << int(EditorRequest::Event) << QVariant::fromValue(QVector<int>{3})
                           << QByteArray("EventPicker");
    QTest::newRow("delay") << int(EditorRequest::Delay) << QVariant(1) << QByteArray("DelayEditor");
    QTest::newRow("weekdays") << int(EditorRequest::Weekdays)
                              << QVariant::fromValue(QVector<int>{1, 3})
                              << QByteArray("WeekdayEditor");
    QTest::newRow("time") << int(EditorRequest::Time) << QVariant("08:05")
                          << QByteArray("TimeEditor");
    QTest::newRow("date") << int(EditorRequest::Date) << QVariant("2024/01/01")
                          << QByteArray("DateEditor");
    QTest::newRow("end") << int(EditorRequest::EndDate) << QVariant() << QByteArray("DateEditor");
    QTest::newRow("dates") << int(EditorRequest::Dates) << range << QByteArray("DateRangeEditor");
    QTest::newRow("choice") << int(EditorRequest::OneOf) << QVariant(2)
                            << QByteArray("ChoiceEditor");
    QTest::newRow("number") << int(EditorRequest::NumberOrOneOf) << QVariant(9600)
                            << QByteArray("ChoiceEditor");
}

void TestCellDelegate::makesTheEditorOfTheRole()
{
    QFETCH(int, kind);
    QFETCH(QVariant, value);
    EditorRequest wanted;
    wanted.kind = static_cast<EditorRequest::Kind>(kind);
    wanted.most = 10000;
    request(cell(0, 1), wanted, value);
    CellEditor* made = open(cell(0, 1));
    QVERIFY(made);
    QTEST(QByteArray(made->metaObject()->className()), "className");
    QCOMPARE(made->accessibleName(), QStringLiteral("Events"));
    QVERIFY(made->isAncestorOf(QApplication::focusWidget()));
    QCOMPARE(made->value().isValid(), value.isValid());
    QVERIFY(made->value() == value);
    QCOMPARE(controlsWithoutName(*made), QStringList());
}

void TestCellDelegate::makesTheUsualEditorWithoutTheRole()
{
    QVERIFY(!open(cell(0, 2)));
    auto* line = m_view->findChild<QLineEdit*>();
    QVERIFY(line);
    QTest::keyClicks(line, QStringLiteral("words"));
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_COMPARE(cell(0, 2).data().toString(), QStringLiteral("words"));
}

void TestCellDelegate::commitsByReturn()
{
    QVERIFY(open(cell(0, 0)));
    hex()->moveCursor(QTextCursor::End);
    QTest::keyClicks(hex(), QStringLiteral("42"));
    QTest::keyClick(hex(), Qt::Key_Return);
    QTRY_COMPARE(cell(0, 0).data(Qt::EditRole).toByteArray(), QByteArray("AB"));
    QTRY_VERIFY(!editor());
    QVERIFY(m_view->hasFocus());
}

void TestCellDelegate::leavesByTab()
{
    QVERIFY(open(cell(0, 0)));
    hex()->moveCursor(QTextCursor::End);
    QTest::keyClicks(hex(), QStringLiteral("42"));
    QTest::keyClick(hex(), Qt::Key_Tab);
    QVERIFY(editor());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTRY_COMPARE(m_view->currentIndex(), cell(0, 1));
    QCOMPARE(cell(0, 0).data(Qt::EditRole).toByteArray(), QByteArray("AB"));
    QTRY_VERIFY(!editor());

    QVERIFY(open(cell(1, 0)));
    QTest::keyClick(hex(), Qt::Key_Backtab);
    QTRY_COMPARE(m_view->currentIndex(), cell(0, 2));
}

void TestCellDelegate::cancelsByEscape()
{
    QVERIFY(open(cell(0, 0)));
    QTest::keyClicks(hex(), QStringLiteral("42"));
    QTest::keyClick(hex(), Qt::Key_Escape);
    QTRY_VERIFY(!editor());
    QCOMPARE(cell(0, 0).data(Qt::EditRole).toByteArray(), QByteArray("A"));
    QVERIFY(m_view->hasFocus());
}

void TestCellDelegate::keepsUnfinishedInputOpen()
{
    QVERIFY(open(cell(0, 0)));
    hex()->moveCursor(QTextCursor::End);
    QTest::keyClicks(hex(), QStringLiteral(" 4"));
    QTest::keyClick(hex(), Qt::Key_Return);
    QTest::keyClick(hex(), Qt::Key_Backtab);
    QCoreApplication::processEvents();
    QVERIFY(editor());
    QCOMPARE(hex()->toPlainText(), QStringLiteral("41 4"));
    QVERIFY(hex()->hasFocus());
}

void TestCellDelegate::keepsUnfinishedInputWhenLeft()
{
    QSignalSpy kept(m_delegate, &CellDelegate::draftKept);
    QVERIFY(open(cell(0, 0)));
    hex()->moveCursor(QTextCursor::End);
    QTest::keyClicks(hex(), QStringLiteral(" 4"));
    QTest::mouseClick(m_view->viewport(), Qt::LeftButton, {},
        m_view->visualRect(cell(2, 2)).center() + QPoint(300, 100));
    m_view->setFocus();
    QTRY_VERIFY(!editor());
    QVERIFY(kept.size() >= 1);
    QCOMPARE(
        kept.first().at(1).toString(), QStringLiteral("The digit at place 4 needs a second one."));
    QVERIFY(m_delegate->hasDraft(cell(0, 0)));
    QCOMPARE(cell(0, 0).data(Qt::EditRole).toByteArray(), QByteArray("A"));

    QVERIFY(open(cell(0, 0)));
    QCOMPARE(hex()->toPlainText(), QStringLiteral("41 4"));
    QVERIFY(hex()->hasFocus());
    QTest::keyClicks(hex(), QStringLiteral("2"));
    QTest::keyClick(hex(), Qt::Key_Return);
    QTRY_COMPARE(cell(0, 0).data(Qt::EditRole).toByteArray(), QByteArray("AB"));
    QTRY_VERIFY(!editor());
    QVERIFY(!m_delegate->hasDraft(cell(0, 0)));
}

void TestCellDelegate::keepsInputWhenTheModelTellsOfTheCell()
{
    QVERIFY(open(cell(0, 0)));
    hex()->moveCursor(QTextCursor::End);
    QTest::keyClicks(hex(), QStringLiteral(" 42"));
    m_model->setData(cell(0, 0), QStringLiteral("a finding"), Qt::ToolTipRole);
    QCOMPARE(hex()->toPlainText(), QStringLiteral("41 42"));
    m_model->setData(cell(0, 0), QByteArray("undone"), Qt::EditRole);
    QCOMPARE(editor()->value().toByteArray(), QByteArray("undone"));
}

void TestCellDelegate::writesOnlyChanges()
{
    EditorRequest wanted;
    wanted.kind = EditorRequest::Weekdays;
    request(cell(0, 1), wanted, QVariant::fromValue(QVector<int>{1, 3}));
    QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    QVERIFY(open(cell(0, 1)));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_VERIFY(!editor());
    QCOMPARE(changes.size(), 0);
}

void TestCellDelegate::fitsTheTable()
{
    CellEditor* made = open(cell(2, 0));
    QVERIFY(made);
    QVERIFY(m_view->viewport()->rect().contains(made->geometry()));
    QVERIFY(made->height() >= made->sizeHint().height());
    m_view->closePersistentEditor(cell(2, 0));
    QTest::keyClick(hex(), Qt::Key_Escape);
    QTRY_VERIFY(!editor());

    m_view->resize(120, 120);
    made = open(cell(0, 0));
    QVERIFY(made);
    QVERIFY(m_view->viewport()->rect().contains(made->geometry()));
}

QTEST_MAIN(TestCellDelegate)
#include "tst_celldelegate.moc"
