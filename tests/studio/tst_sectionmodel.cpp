// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "failonwarnings.h"
#include "models/sectionmodel.h"
#include "samplecontents.h"
#include "threadedunit.h"
#include "workspace/unitworkspace.h"

#include <contentsdifference.h>
#include <contentstree.h>

#include <QtCore/QMimeData>
#include <QtCore/QRandomGenerator>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QtTest>

using namespace QuadrelDocument;

Q_DECLARE_METATYPE(QuadrelDocument::Section)

namespace {

constexpr Section tables[] = {Section::SerialPorts, Section::IoLines, Section::Events,
    Section::Triggers, Section::TimeTriggers};

/** The sample's contents with the tables over them, each watched by a tester. */
struct Tables {
    explicit Tables(const Contents& contents = sampleContents())
    {
        workspace.document().reset(contents);
        for (const Section section : tables) {
            models.push_back(SectionModel::create(workspace, section));
            testers.push_back(std::make_unique<QAbstractItemModelTester>(
                models.back().get(), QAbstractItemModelTester::FailureReportingMode::Fatal));
        }
    }

    SectionModel& of(Section section)
    {
        return **std::find_if(models.begin(), models.end(),
            [section](const auto& model) { return model->section() == section; });
    }
    QUndoStack& undoStack() { return workspace.document().undoStack(); }
    const Contents& contents() { return workspace.contents(); }

    UnitWorkspace workspace;
    std::vector<std::unique_ptr<SectionModel>> models;
    std::vector<std::unique_ptr<QAbstractItemModelTester>> testers;
};

void addSections()
{
    QTest::addColumn<Section>("section");
    for (const Section section : tables)
        QTest::newRow(qPrintable(sectionName(section))) << section;
}

QVector<int> eventIds(const Contents& contents)
{
    QVector<int> ids;
    for (const Event& event : *contents.events)
        ids.append(event.id);
    return ids;
}

} // namespace

class TestSectionModel : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { failOnWarnings(); }
    void showsCells_data();
    void showsCells();
    void editsCells_data();
    void editsCells();
    void refusesOtherCells();
    void adds_data() { addSections(); }
    void adds();
    void duplicatesWithFreeIds();
    void removesScatteredRows();
    void moves_data();
    void moves();
    void copiesAndInserts_data() { addSections(); }
    void copiesAndInserts();
    void insertsFromSpreadsheets_data();
    void insertsFromSpreadsheets();
    void refusesText_data();
    void refusesText();
    void dragsWithin();
    void dragsBetween();
    void marksFindings();
    void bringsSectionsBack_data() { addSections(); }
    void bringsSectionsBack();
    void walksBackToTheStart_data();
    void walksBackToTheStart();
};

void TestSectionModel::showsCells_data()
{
    QTest::addColumn<Section>("section");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("shown");
    const auto row = [](Section section, int row, const char* field, const char* shown) {
        QTest::addRow("%s[%d].%s", qPrintable(sectionName(section)), row, field)
            << section << row << field << QString::fromUtf8(shown);
    };
    row(Section::SerialPorts, 0, "port", "1");
    row(Section::SerialPorts, 0, "inspection", "None");
    row(Section::IoLines, 1, "line", "2");
    row(Section::Events, 0, "id", "1");
}

void TestSectionModel::showsCells()
{
    QFETCH(Section, section);
    QFETCH(int, row);
    QFETCH(QString, field);
    Tables tables;
    const SectionModel& model = tables.of(section);
    QTEST(model.index(row, model.columnOf(field)).data().toString(), "shown");
}

void TestSectionModel::editsCells_data()
{
    QTest::addColumn<Section>("section");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QVariant>("value");
    const auto row = [](Section section, const char* field, const QVariant& value) {
        QTest::addRow("%s %s", qPrintable(sectionName(section)), field)
            << section << field << value;
    };
    row(Section::SerialPorts, "baudRate", 57600);
    row(Section::SerialPorts, "dataBits", 7);
    row(Section::SerialPorts, "stopBits", 2);
    row(Section::SerialPorts, "inspection", 1);
    row(Section::IoLines, "type", 2);
    row(Section::Events, "id", 200);
    row(Section::Events, "name", QStringLiteral("Other name"));
    row(Section::Events, "description", QStringLiteral("Other text"));
    row(Section::Events, "protocol", QByteArray("\x01\x02"));
    row(Section::Events, "delay", 1200);
    row(Section::Triggers, "kind", int(TriggerKind::ComModbus));
    row(Section::Triggers, "line", 3);
    row(Section::Triggers, "parameter", QByteArray("\x0a\x0b"));
    row(Section::Triggers, "eventIds", QVariant::fromValue(QVector<int>{3, 1}));
    row(Section::Triggers, "description", QStringLiteral("Other text"));
    row(Section::TimeTriggers, "repeat", int(Repeat::Weekly));
    row(Section::TimeTriggers, "startDate", QStringLiteral("2030/01/02"));
    row(Section::TimeTriggers, "endDate", QStringLiteral("2031/01/02"));
    row(Section::TimeTriggers, "weekdays", QVariant::fromValue(QVector<int>{2, 5}));
    row(Section::TimeTriggers, "time", QStringLiteral("23:59"));
    row(Section::TimeTriggers, "eventIds", QVariant::fromValue(QVector<int>{}));
    row(Section::TimeTriggers, "description", QStringLiteral("Other text"));
}

void TestSectionModel::editsCells()
{
    QFETCH(Section, section);
    QFETCH(QString, field);
    QFETCH(QVariant, value);
    Tables tables;
    SectionModel& model = tables.of(section);
    const Contents before = tables.contents();
    const QModelIndex cell = model.index(0, model.columnOf(field));
    QVERIFY(cell.flags() & Qt::ItemIsEditable);

    QSignalSpy changes(&model, &SectionModel::dataChanged);
    QVERIFY(model.setData(cell, value, Qt::EditRole));
    QCOMPARE(cell.data(Qt::EditRole), value);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(tables.undoStack().count(), 1);
    const Difference difference = compareContents(before, tables.contents());
    if (field != QLatin1String("id"))
        QCOMPARE(difference.changes.size(), 1);

    QVERIFY(model.setData(cell, value, Qt::EditRole));
    QCOMPARE(tables.undoStack().count(), 1);
    tables.undoStack().undo();
    QVERIFY(tables.contents() == before);
}

void TestSectionModel::refusesOtherCells()
{
    Tables tables;
    SectionModel& ports = tables.of(Section::SerialPorts);
    QVERIFY(!(ports.index(0, 0).flags() & Qt::ItemIsEditable));
    QVERIFY(!ports.setData(ports.index(0, 0), 7, Qt::EditRole));
    QVERIFY(!ports.setData(ports.index(0, 1), 7, Qt::DisplayRole));
    QVERIFY(!ports.setData(QModelIndex(), 7, Qt::EditRole));

    // A delay has no command.
    SectionModel& events = tables.of(Section::Events);
    events.setData(events.index(0, events.columnOf(QStringLiteral("delay"))), 500, Qt::EditRole);
    const QModelIndex command = events.index(0, events.columnOf(QStringLiteral("protocol")));
    QVERIFY(!(command.flags() & Qt::ItemIsEditable));
    QCOMPARE(tables.contents().events->at(0).command, QByteArray());
    QCOMPARE(tables.undoStack().count(), 1);
}

void TestSectionModel::adds()
{
    QFETCH(Section, section);
    Tables tables;
    SectionModel& model = tables.of(section);
    const Contents before = tables.contents();
    const int rows = model.rowCount();
    model.addRow(rows);
    model.addRow(0);
    QCOMPARE(model.rowCount(), rows + 2);
    tables.undoStack().setIndex(0);
    QVERIFY(tables.contents() == before);
}

void TestSectionModel::duplicatesWithFreeIds()
{
    Contents contents;
    contents.events = QVector<Event>(3);
    (*contents.events)[0].id = 7;
    (*contents.events)[1].id = Limit::id;
    (*contents.events)[2].id = 0;
    Tables tables(contents);
    tables.of(Section::Events).duplicateRows({1, 0});
    QCOMPARE(eventIds(tables.contents()), QVector<int>({7, 255, 1, 2, 0}));
}

void TestSectionModel::removesScatteredRows()
{
    Tables tables;
    const Contents before = tables.contents();
    const QVector<int> ids = eventIds(before);
    tables.of(Section::Events).removeRecords({4, 0, 1, 9});
    QVector<int> left = ids;
    for (const int row : {9, 4, 1, 0})
        left.remove(row);
    QCOMPARE(eventIds(tables.contents()), left);
    QCOMPARE(tables.undoStack().count(), 1);
    tables.undoStack().undo();
    QVERIFY(tables.contents() == before);
    QVERIFY(!tables.of(Section::Events).removeRows(30, 50, {}));
}

void TestSectionModel::moves_data()
{
    QTest::addColumn<QList<int>>("rows");
    QTest::addColumn<int>("destination");
    QTest::addColumn<QVector<int>>("order");
    QTest::newRow("down") << QList<int>{0} << 3 << QVector<int>{1, 2, 0, 3, 4, 5};
    QTest::newRow("to the end") << QList<int>{0, 1} << 6 << QVector<int>{2, 3, 4, 5, 0, 1};
    QTest::newRow("up") << QList<int>{4, 5} << 1 << QVector<int>{0, 4, 5, 1, 2, 3};
    QTest::newRow("together") << QList<int>{0, 2, 5} << 4 << QVector<int>{1, 3, 0, 2, 5, 4};
    QTest::newRow("to where it is") << QList<int>{2} << 2 << QVector<int>{0, 1, 2, 3, 4, 5};
    QTest::newRow("ahead of the next") << QList<int>{2} << 3 << QVector<int>{0, 1, 2, 3, 4, 5};
    QTest::newRow("none") << QList<int>{} << 3 << QVector<int>{0, 1, 2, 3, 4, 5};
}

void TestSectionModel::moves()
{
    QFETCH(QList<int>, rows);
    QFETCH(int, destination);
    QFETCH(QVector<int>, order);
    Contents contents;
    contents.events = QVector<Event>(6);
    for (int i = 0; i < 6; ++i)
        (*contents.events)[i].id = i;
    Tables tables(contents);
    tables.of(Section::Events).moveRecords(rows, destination);
    QCOMPARE(eventIds(tables.contents()), order);
    const bool isMoved = order != eventIds(contents);
    QCOMPARE(tables.undoStack().count(), isMoved ? 1 : 0);
    tables.undoStack().undo();
    QVERIFY(tables.contents() == contents);
}

void TestSectionModel::copiesAndInserts()
{
    QFETCH(Section, section);
    Tables from;
    Tables to(Contents{});
    QList<int> rows;
    for (int row = 0; row < from.of(section).rowCount(); ++row)
        rows.append(row);
    QVERIFY(!rows.isEmpty());
    QCOMPARE(to.of(section).insertText(0, from.of(section).rowsText(rows)), QString());
    QCOMPARE(to.of(section).rowCount(), rows.size());
    for (int row = 0; row < rows.size(); ++row)
        QVERIFY(
            recordNode(to.contents(), section, row) == recordNode(from.contents(), section, row));
    QCOMPARE(to.undoStack().count(), 1);
}

void TestSectionModel::insertsFromSpreadsheets_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("description");
    QTest::newRow("in order") << "4\tLamp\tOn"
                              << "Lamp"
                              << "On";
    QTest::newRow("carriage returns") << "4\tLamp\tOn\r\n"
                                      << "Lamp"
                                      << "On";
    QTest::newRow("named") << "description\tname\nOn\tLamp\n"
                           << "Lamp"
                           << "On";
    QTest::newRow("quoted") << "4\t\"A \"\"B\"\"\tC\"\tOn\n"
                            << "A \"B\"\tC"
                            << "On";
    QTest::newRow("quote without end") << "4\tLamp\t\"On"
                                       << "Lamp"
                                       << "On";
    QTest::newRow("more cells than columns") << "4\tLamp\tOn\t\t01\tx\ty"
                                             << "Lamp"
                                             << "On";
}

void TestSectionModel::insertsFromSpreadsheets()
{
    QFETCH(QString, text);
    Tables tables(Contents{});
    QCOMPARE(tables.of(Section::Events).insertText(0, text), QString());
    const Event event = tables.contents().events->at(0);
    QTEST(event.name.value_or(QString()), "name");
    QTEST(event.description, "description");
}

void TestSectionModel::refusesText_data()
{
    QTest::addColumn<Section>("section");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("error");
    QTest::newRow("nothing") << Section::Events << QString()
                             << QStringLiteral("There are no rows to insert");
    QTest::newRow("names only") << Section::Events << QStringLiteral("id\tname\n")
                                << QStringLiteral("There are no rows to insert");
    QTest::newRow("no number")
        << Section::Events << QStringLiteral("id\n1\nx\n")
        << QStringLiteral("Line 3, Id: \"x\" can't be understood; nothing was inserted");
    QTest::newRow("no bytes")
        << Section::Events << QStringLiteral("1\t\t\t\t0g")
        << QStringLiteral("Line 1, Command: \"0g\" can't be understood; nothing was inserted");
    QTest::newRow("no kind")
        << Section::Triggers << QStringLiteral("kind\nRADIO")
        << QStringLiteral("Line 2, Kind: \"RADIO\" can't be understood; nothing was inserted");
}

void TestSectionModel::refusesText()
{
    QFETCH(Section, section);
    QFETCH(QString, text);
    Tables tables(Contents{});
    QTEST(tables.of(section).insertText(0, text), "error");
    QVERIFY(tables.contents() == Contents());
    QCOMPARE(tables.undoStack().count(), 0);
}

void TestSectionModel::dragsWithin()
{
    Tables tables;
    SectionModel& model = tables.of(Section::Events);
    const QVector<int> ids = eventIds(tables.contents());
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(0, 0), model.index(0, 1)}));
    // The view must not remove the row, which has gone to its new place.
    QVERIFY(!model.dropMimeData(data.get(), Qt::MoveAction, 2, 0, {}));
    QVector<int> moved = ids;
    moved.move(0, 1);
    QCOMPARE(eventIds(tables.contents()), moved);
}

void TestSectionModel::dragsBetween()
{
    Tables from;
    Tables to(Contents{});
    SectionModel& source = from.of(Section::Events);
    const std::unique_ptr<QMimeData> data(source.mimeData({source.index(3, 0)}));
    to.of(Section::Events).dropMimeData(data.get(), Qt::MoveAction, -1, -1, {});
    QCOMPARE(to.contents().events->size(), 1);
    QVERIFY(to.contents().events->at(0) == from.contents().events->at(3));
    QCOMPARE(from.contents().events->size(), sampleEvents);
}

void TestSectionModel::marksFindings()
{
    Tables tables;
    SectionModel& model = tables.of(Section::Events);
    const QModelIndex cell = model.index(0, model.columnOf(QStringLiteral("description")));
    QSignalSpy found(&tables.workspace, &UnitWorkspace::findingsChanged);
    model.setData(cell, QStringLiteral("a$$b"), Qt::EditRole);
    QVERIFY(found.wait());
    QCOMPARE(cell.data(SectionModel::SeverityRole).toInt(), int(Severity::Error));
    QCOMPARE(cell.data(Qt::ToolTipRole).toString(),
        QStringLiteral("\"$$\" is not allowed; what follows it would be read as the name"));
    QVERIFY(!cell.data(Qt::DecorationRole).value<QIcon>().isNull());
    QVERIFY(!cell.siblingAtColumn(0).data(SectionModel::SeverityRole).isValid());

    tables.undoStack().undo();
    QVERIFY(found.wait());
    QVERIFY(!cell.data(SectionModel::SeverityRole).isValid());
}

void TestSectionModel::bringsSectionsBack()
{
    QFETCH(Section, section);
    Tables tables(Contents{});
    tables.of(section).addRow(0);
    QVERIFY(hasSection(tables.contents(), section));
    tables.undoStack().undo();
    QVERIFY(!hasSection(tables.contents(), section));
    tables.undoStack().redo();
    QCOMPARE(tables.of(section).rowCount(), 1);
}

namespace {

/** Makes edits that nobody would think of. */
class Walker {
public:
    Walker(Tables& tables, quint32 seed)
        : m_tables(tables)
        , m_random(seed)
    {
    }

    void step()
    {
        SectionModel& model = *m_tables.models.at(m_random.bounded(int(m_tables.models.size())));
        switch (m_random.bounded(8)) {
        case 0:
            model.addRow(place(model));
            break;
        case 1:
            model.duplicateRows(rows(model));
            break;
        case 2:
            model.removeRecords(rows(model));
            break;
        case 3:
            model.moveRecords(rows(model), place(model));
            break;
        case 4:
            model.insertText(place(model), model.rowsText(rows(model)));
            break;
        case 5:
            m_tables.undoStack().setIndex(m_random.bounded(m_tables.undoStack().count() + 1));
            break;
        default:
            edit(model);
        }
    }

private:
    int place(const SectionModel& model) { return m_random.bounded(model.rowCount() + 1); }

    QList<int> rows(const SectionModel& model)
    {
        QList<int> rows;
        for (int row = 0; row < model.rowCount(); ++row) {
            if (m_random.bounded(4) == 0)
                rows.append(row);
        }
        return rows;
    }

    void edit(SectionModel& model)
    {
        if (model.rowCount() == 0)
            return;
        // Takes the cell of another row, which the kind of this one need not fit.
        const int column = m_random.bounded(model.columnCount());
        const QModelIndex from = model.index(m_random.bounded(model.rowCount()), column);
        const QModelIndex to = model.index(m_random.bounded(model.rowCount()), column);
        model.setData(to, from.data(Qt::EditRole), Qt::EditRole);
    }

    Tables& m_tables;
    QRandomGenerator m_random;
};

} // namespace

void TestSectionModel::walksBackToTheStart_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 0; seed < 10; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void TestSectionModel::walksBackToTheStart()
{
    QFETCH(quint32, seed);
    Tables tables;
    const Contents start = tables.contents();
    Walker walker(tables, seed);
    for (int i = 0; i < 60; ++i)
        walker.step();
    tables.undoStack().setIndex(tables.undoStack().count());
    const Contents end = tables.contents();
    tables.undoStack().setIndex(0);
    QVERIFY(tables.contents() == start);
    tables.undoStack().setIndex(tables.undoStack().count());
    QVERIFY(tables.contents() == end);
}

QTEST_MAIN(TestSectionModel)
#include "tst_sectionmodel.moc"
