// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "controls.h"
#include "failonwarnings.h"
#include "fullunit.h"
#include "samplecontents.h"

#include "pictures/mappicture.h"
#include "pictures/mapview.h"
#include "pictures/pictureitem.h"
#include "pictures/weekpicture.h"
#include "pictures/weekview.h"

#include <QtCore/QTemporaryDir>
#include <QtPrintSupport/QPrinter>
#include <QtSvg/QSvgRenderer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDateEdit>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>

using namespace QuadrelDocument;
using Mark = PictureItem::Mark;

namespace {

/** In a week in which most of the sample's triggers fire. */
const QDate sampleDate(2025, 3, 5);

/** As many boxes and items of the week as must do for a full unit. */
constexpr int mostItemsBesideBoxes = 8;

QVector<PictureItem*> boxesOf(const PictureView& view)
{
    QVector<PictureItem*> boxes;
    for (QGraphicsItem* item : view.scene()->items(Qt::AscendingOrder)) {
        if (auto* box = qgraphicsitem_cast<PictureItem*>(item))
            boxes.append(box);
    }
    return boxes;
}

QPoint centerOf(const PictureView& view, const PictureItem* box)
{
    return view.mapFromScene(box->sceneBoundingRect().center());
}

PictureItem* boxTitled(const PictureView& view, const QString& title)
{
    for (PictureItem* box : boxesOf(view)) {
        if (box->label().title == title)
            return box;
    }
    return nullptr;
}

void click(PictureView& view, const PictureItem* box)
{
    view.ensureVisible(box);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, centerOf(view, box));
}

/** Contents that no unit gives back: everything that makes no sense at once. */
Contents nonsense()
{
    Contents contents;
    Event event;
    event.id = -5;
    event.delay = -1;
    contents.events = {event, event};
    Trigger trigger;
    trigger.kind = TriggerKind::Io;
    trigger.line = 99;
    trigger.eventIds = {-5, 1000, -1000};
    trigger.description = QString(5000, QLatin1Char('x')) + QLatin1Char('\n');
    contents.triggers = {trigger};
    TimeTrigger timeTrigger;
    timeTrigger.startDate = QStringLiteral("20165/165/165");
    timeTrigger.time = QStringLiteral("165:165");
    timeTrigger.weekdays = {-1, 0, 9, 1000000};
    contents.timeTriggers = {timeTrigger};
    return contents;
}

} // namespace

class TestPictures : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();

    void drawsABlockForEachFiring();
    void putsBlocksByTheHour();
    void keepsBlocksApart();
    void reportsTheClickedTrigger();
    void reportsTheTriggerOfTheKeys();
    void listsTriggersThatDoNotFire();
    void movesByWeeks();
    void drawsThePresentInItsWeekOnly();
    void keepsHeadersInView();
    void marksTriggersOutOfOrder();

    void drawsTheMap();
    void marksEventsOutOfOrder();
    void lightsThePathOfTheMouse();
    void reportsWhatIsClickedInTheMap();
    void movesThroughTheMapByKeys();

    void zoomsByWheelAndKeys();
    void fitsTheWindow();
    void savesPictures_data();
    void savesPictures();
    void reportsPicturesThatCantBeSaved_data();
    void reportsPicturesThatCantBeSaved();
    void printsDarkOnLight();
    void printsLongMapsOnPages();

    void drawsNonsense();
    void drawsAFullUnitWithFewItems();
    void translatesWhileItRuns();
    void hasNames();
};

void TestPictures::initTestCase()
{
    failOnWarnings();
}

void TestPictures::drawsABlockForEachFiring()
{
    WeekPicture picture;
    picture.setDate(sampleDate);
    picture.setContents(sampleContents());
    WeekView& view = *picture.view();
    // Every day twice, on five workdays, at the weekend, and on three odd days.
    QCOMPARE(view.plan().firings.size(), 7 + 7 + 5 + 2 + 3);
    QCOMPARE(boxesOf(view).size(), view.plan().firings.size());
    const PictureItem* lights = boxTitled(view, QString::fromUtf8("08:05 每天开灯"));
    QVERIFY(lights);
    QCOMPARE(lights->toolTip(),
        QString::fromUtf8("每天开灯\n08:05, every day, from 2024-03-07, forever\nRuns:\n"
                          "    25 大厅灯开"));
    // Without a description, it goes by its events.
    QVERIFY(boxTitled(view, QString::fromUtf8("12:00 11 音量调到 45")));
}

void TestPictures::putsBlocksByTheHour()
{
    WeekPicture picture;
    picture.setDate(sampleDate);
    picture.setContents(sampleContents());
    const auto boxes = boxesOf(*picture.view());
    const auto& firings = picture.view()->plan().firings;
    for (int i = 1; i < boxes.size(); ++i) {
        const auto& before = firings.at(i - 1);
        const auto& firing = firings.at(i);
        if (firing.day == before.day)
            QVERIFY(boxes.at(i)->y() >= boxes.at(i - 1)->y());
        else
            QVERIFY(boxes.at(i)->x() > boxes.at(i - 1)->x());
    }
    QVERIFY(picture.view()->sceneRect().contains(boxes.last()->sceneBoundingRect()));
}

void TestPictures::keepsBlocksApart()
{
    for (const Contents& contents : {sampleContents(), fullUnit(1)}) {
        WeekPicture picture;
        picture.setContents(contents);
        const auto boxes = boxesOf(*picture.view());
        QVERIFY(!boxes.isEmpty());
        for (int i = 0; i < boxes.size(); ++i) {
            for (int j = 0; j < i; ++j) {
                // The frame of a box may touch its neighbour's.
                const QRectF one = boxes.at(i)->sceneBoundingRect().adjusted(3, 3, -3, -3);
                const QRectF other = boxes.at(j)->sceneBoundingRect().adjusted(3, 3, -3, -3);
                QVERIFY(!one.intersects(other));
            }
        }
    }
}

void TestPictures::reportsTheClickedTrigger()
{
    WeekPicture picture;
    picture.resize(1000, 700);
    picture.setDate(sampleDate);
    picture.setContents(sampleContents());
    QVERIFY(showActive(picture));
    QSignalSpy activated(&picture, &WeekPicture::timeTriggerActivated);
    click(*picture.view(), boxTitled(*picture.view(), QStringLiteral("22:30 Lights out")));
    QCOMPARE(activated.size(), 1);
    QCOMPARE(activated.first().first().toInt(), 1);

    // Elsewhere, and with another button, nothing is meant.
    QTest::mouseClick(picture.view()->viewport(), Qt::LeftButton, {}, QPoint(2, 2));
    const auto* box = boxesOf(*picture.view()).first();
    picture.view()->ensureVisible(box);
    QTest::mouseClick(
        picture.view()->viewport(), Qt::RightButton, {}, centerOf(*picture.view(), box));
    QCOMPARE(activated.size(), 1);
}

void TestPictures::reportsTheTriggerOfTheKeys()
{
    WeekPicture picture;
    picture.resize(1000, 700);
    picture.setDate(sampleDate);
    picture.setContents(sampleContents());
    QVERIFY(showActive(picture));
    WeekView& view = *picture.view();
    controlNamed<QPushButton>(picture, QStringLiteral("Today"))->setFocus();
    view.setFocus(Qt::TabFocusReason);
    QVERIFY(view.currentItem());
    QCOMPARE(view.currentItem()->number(), 0);
    QCOMPARE(view.accessibleDescription(), view.currentItem()->toolTip());
    QTest::keyClick(&view, Qt::Key_Down);
    QCOMPARE(view.plan().firings.at(view.currentItem()->number()).day, 0);
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(view.plan().firings.at(view.currentItem()->number()).day, 1);
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Left);
    QTest::keyClick(&view, Qt::Key_Up);
    QTest::keyClick(&view, Qt::Key_Up);
    QCOMPARE(view.currentItem()->number(), 0);
    QSignalSpy activated(&picture, &WeekPicture::timeTriggerActivated);
    QTest::keyClick(&view, Qt::Key_Return);
    QCOMPARE(activated.size(), 1);
    QCOMPARE(activated.first().first().toInt(), view.plan().firings.first().trigger);
}

void TestPictures::listsTriggersThatDoNotFire()
{
    WeekPicture picture;
    picture.resize(1000, 700);
    picture.setDate({2026, 11, 16});
    picture.setContents(sampleContents());
    QVERIFY(showActive(picture));
    auto* list = controlNamed<QListWidget>(
        picture, QStringLiteral("Time triggers that do not fire in this week"));
    QVERIFY(list->isVisible());
    QStringList texts;
    for (int row = 0; row < list->count(); ++row)
        texts.append(list->item(row)->text());
    QCOMPARE(texts,
        QStringList({QString::fromUtf8("23:59 Weekend: all off – has ended, on 2026-06-30"),
            QString::fromUtf8("06:05 Start of the exhibition – has ended, on 2026-11-14"),
            QString::fromUtf8("00:00 停用定时任务 – begins later, on 2030-02-28")}));

    QSignalSpy activated(&picture, &WeekPicture::timeTriggerActivated);
    list->setFocus();
    list->setCurrentRow(1);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(activated.size(), 1);
    QCOMPARE(activated.first().first().toInt(), 5);
    picture.setContents(Contents());
    QVERIFY(!list->isVisible());
}

void TestPictures::movesByWeeks()
{
    WeekPicture picture;
    QVERIFY(showActive(picture));
    picture.setDate({2024, 2, 28});
    QCOMPARE(picture.view()->plan().firstDay, QDate(2024, 2, 26));
    controlNamed<QPushButton>(picture, QStringLiteral("Next week"))->click();
    QCOMPARE(picture.view()->plan().firstDay, QDate(2024, 3, 4));
    controlNamed<QPushButton>(picture, QStringLiteral("Previous week"))->click();
    controlNamed<QPushButton>(picture, QStringLiteral("Previous week"))->click();
    QCOMPARE(picture.view()->plan().firstDay, QDate(2024, 2, 19));
    picture.setFirstWeekday(Qt::Sunday);
    QCOMPARE(picture.view()->plan().firstDay, QDate(2024, 2, 18));
    controlNamed<QPushButton>(picture, QStringLiteral("Today"))->click();
    QVERIFY(picture.view()->plan().firstDay.daysTo(QDate::currentDate()) < WeekPlan::days);
}

void TestPictures::drawsThePresentInItsWeekOnly()
{
    WeekPicture picture;
    picture.setNow(QDateTime(QDate(2024, 2, 29), QTime(23, 59)));
    for (const auto& [date, isNow] :
        {std::pair(QDate(2024, 2, 25), false), std::pair(QDate(2024, 2, 26), true),
            std::pair(QDate(2024, 3, 3), true), std::pair(QDate(2024, 3, 4), false)}) {
        picture.setDate(date);
        QCOMPARE(picture.view()->showsNow(), isNow);
    }
}

void TestPictures::keepsHeadersInView()
{
    WeekPicture picture;
    picture.resize(500, 400);
    picture.setDate(sampleDate);
    picture.setNow(QDateTime(QDate(2000, 1, 1), QTime(0, 0)));
    picture.setContents(sampleContents());
    QVERIFY(showActive(picture));
    WeekView& view = *picture.view();
    const auto header = [&view] { return view.viewport()->grab(QRect(0, 0, 40, 10)).toImage(); };
    const QImage before = header();
    view.centerOn(view.sceneRect().bottomRight());
    QVERIFY(view.mapToScene(QPoint(0, 0)).y() > 0);
    QCOMPARE(header(), before);
}

void TestPictures::marksTriggersOutOfOrder()
{
    Contents contents = fullUnit(1);
    contents.timeTriggers->resize(3);
    (*contents.timeTriggers)[1].eventIds = {1, 200};
    (*contents.timeTriggers)[2].eventIds.clear();
    WeekPicture picture;
    picture.setContents(contents);
    const auto boxes = boxesOf(*picture.view());
    QCOMPARE(int(boxes.at(0)->label().mark), int(Mark::None));
    QCOMPARE(int(boxes.at(1)->label().mark), int(Mark::Missing));
    QVERIFY(boxes.at(1)->toolTip().contains(QLatin1String("200 (missing)")));
    QCOMPARE(int(boxes.at(2)->label().mark), int(Mark::Unused));
    QVERIFY(boxes.at(2)->toolTip().contains(QLatin1String("Runs nothing")));

    contents.events.reset();
    picture.setContents(contents);
    QCOMPARE(int(boxesOf(*picture.view()).at(1)->label().mark), int(Mark::None));
}

void TestPictures::drawsTheMap()
{
    MapPicture picture;
    picture.setContents(sampleContents());
    const MapView& view = *picture.view();
    QCOMPARE(boxesOf(view).size(), view.map().nodes.size());
    const PictureItem* cause = boxTitled(view, QStringLiteral("COM A-2"));
    const PictureItem* event = boxTitled(view, QStringLiteral("10 Sound on again"));
    const PictureItem* target = boxTitled(view, QStringLiteral("Serial ports"));
    QVERIFY(cause && event && target);
    QVERIFY(cause->sceneBoundingRect().right() < event->sceneBoundingRect().left());
    QVERIFY(event->sceneBoundingRect().right() < target->sceneBoundingRect().left());
    QCOMPARE(cause->label().detail, QStringLiteral("Display is on"));
    QVERIFY(boxTitled(view, QStringLiteral("IO A-1 high")));
    QVERIFY(boxTitled(view, QStringLiteral("12:00 Mon, Wed, Fri")));
    const auto boxes = boxesOf(view);
    for (int i = 0; i < boxes.size(); ++i) {
        QVERIFY(view.sceneRect().contains(boxes.at(i)->sceneBoundingRect()));
        for (int j = 0; j < i; ++j)
            QVERIFY(!boxes.at(i)->sceneBoundingRect().intersects(boxes.at(j)->sceneBoundingRect()));
    }
}

void TestPictures::marksEventsOutOfOrder()
{
    Contents contents = sampleContents();
    (*contents.triggers)[0].eventIds.append(77);
    MapPicture picture;
    picture.setContents(contents);
    const PictureItem* missing = boxTitled(*picture.view(), QStringLiteral("77 (missing)"));
    QVERIFY(missing);
    QCOMPARE(int(missing->label().mark), int(Mark::Missing));
    QCOMPARE(missing->label().detail, QStringLiteral("no such event"));
    const PictureItem* unused = boxTitled(*picture.view(), QStringLiteral("20 Door opener off"));
    QVERIFY(unused);
    QCOMPARE(int(unused->label().mark), int(Mark::None));
    const PictureItem* reset = boxTitled(*picture.view(), QStringLiteral("32"));
    QVERIFY(reset);
    QCOMPARE(int(reset->label().mark), int(Mark::Unused));
    QCOMPARE(reset->label().detail, QStringLiteral("unused: nothing runs it"));
    const auto labels = picture.findChildren<QLabel*>();
    QVERIFY(labels.first()->text().startsWith(QLatin1String("1 event(s) missing, ")));
}

void TestPictures::lightsThePathOfTheMouse()
{
    MapPicture picture;
    picture.resize(1200, 800);
    picture.setContents(sampleContents());
    QVERIFY(showActive(picture));
    MapView& view = *picture.view();
    PictureItem* cause = boxTitled(view, QStringLiteral("COM A-2"));
    view.ensureVisible(cause);
    QTest::mouseMove(view.viewport(), centerOf(view, cause));
    QTRY_COMPARE(view.litNodes(), view.map().pathThrough(cause->number()));
    QCOMPARE(int(cause->state()), int(PictureItem::State::Lit));
    QCOMPARE(int(boxTitled(view, QStringLiteral("10 Sound on again"))->state()),
        int(PictureItem::State::Lit));
    QCOMPARE(int(boxTitled(view, QStringLiteral("32"))->state()), int(PictureItem::State::Dimmed));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(view.viewport(), &leave);
    QVERIFY(view.litNodes().isEmpty());
    QCOMPARE(int(cause->state()), int(PictureItem::State::Normal));
}

void TestPictures::reportsWhatIsClickedInTheMap()
{
    Contents contents = sampleContents();
    (*contents.triggers)[0].eventIds.append(77);
    MapPicture picture;
    picture.resize(1200, 800);
    picture.setContents(contents);
    QVERIFY(showActive(picture));
    QSignalSpy triggers(&picture, &MapPicture::triggerActivated);
    QSignalSpy timeTriggers(&picture, &MapPicture::timeTriggerActivated);
    QSignalSpy events(&picture, &MapPicture::eventActivated);
    QSignalSpy missing(&picture, &MapPicture::missingEventActivated);
    MapView& view = *picture.view();
    click(view, boxTitled(view, QStringLiteral("COM A-2")));
    click(view, boxTitled(view, QStringLiteral("12:00 Mon, Wed, Fri")));
    click(view, boxTitled(view, QStringLiteral("10 Sound on again")));
    click(view, boxTitled(view, QStringLiteral("77 (missing)")));
    click(view, boxTitled(view, QStringLiteral("Serial ports")));
    QCOMPARE(triggers, QList<QVariantList>({{2}}));
    QCOMPARE(timeTriggers, QList<QVariantList>({{4}}));
    QCOMPARE(events, QList<QVariantList>({{9}}));
    QCOMPARE(missing, QList<QVariantList>({{77}}));
}

void TestPictures::movesThroughTheMapByKeys()
{
    MapPicture picture;
    picture.resize(1200, 800);
    picture.setContents(sampleContents());
    QVERIFY(showActive(picture));
    MapView& view = *picture.view();
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_Down);
    const auto column = [&view] {
        return int(view.map().nodes.at(view.currentItem()->number()).column);
    };
    QCOMPARE(column(), int(TriggerMap::Column::Cause));
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(column(), int(TriggerMap::Column::Event));
    QVERIFY(view.litNodes().contains(view.currentItem()->number()));
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(column(), int(TriggerMap::Column::Target));
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(column(), int(TriggerMap::Column::Target));
    // Each box can be reached by going down its column.
    QTest::keyClick(&view, Qt::Key_Left);
    for (int i = 0; i < 200; ++i)
        QTest::keyClick(&view, Qt::Key_Up);
    QSet<int> reached{view.currentItem()->number()};
    for (int i = 0; i < 200; ++i) {
        QTest::keyClick(&view, Qt::Key_Down);
        reached.insert(view.currentItem()->number());
    }
    for (const int event : view.map().nodesOf(TriggerMap::Column::Event))
        QVERIFY(reached.contains(event));
}

void TestPictures::zoomsByWheelAndKeys()
{
    MapPicture picture;
    picture.resize(800, 600);
    picture.setContents(sampleContents());
    QVERIFY(showActive(picture));
    MapView& view = *picture.view();
    const auto zoom = [&view] { return view.transform().m11(); };
    const auto turn = [&view](int delta, Qt::KeyboardModifiers modifiers) {
        const QPoint middle = view.viewport()->rect().center();
        QWheelEvent event(middle, view.viewport()->mapToGlobal(middle), {}, {0, delta}, {},
            modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view.viewport(), &event);
    };
    turn(120, Qt::ControlModifier);
    QVERIFY(zoom() > 1.1);
    turn(-120, Qt::ControlModifier);
    QVERIFY(qFuzzyCompare(zoom(), 1.0));
    turn(-120, Qt::NoModifier);
    QVERIFY(qFuzzyCompare(zoom(), 1.0));
    QVERIFY(view.mapToScene(QPoint(0, 0)).y() > 0);
    QTest::keyClick(&view, Qt::Key_Plus, Qt::ControlModifier);
    QVERIFY(zoom() > 1.1);
    QTest::keyClick(&view, Qt::Key_1, Qt::ControlModifier);
    QVERIFY(qFuzzyCompare(zoom(), 1.0));
    QTest::keyClick(&view, Qt::Key_Minus, Qt::ControlModifier);
    QVERIFY(zoom() < 0.9);
    for (int i = 0; i < 100; ++i)
        turn(1200, Qt::ControlModifier);
    QVERIFY(zoom() <= 8.001);
    for (int i = 0; i < 100; ++i)
        turn(-1200, Qt::ControlModifier);
    QVERIFY(zoom() >= 0.0499);
}

void TestPictures::fitsTheWindow()
{
    MapPicture picture;
    picture.resize(800, 600);
    picture.setContents(sampleContents());
    QVERIFY(showActive(picture));
    MapView& view = *picture.view();
    const auto isWhole = [&view] {
        const QRectF shown = view.mapFromScene(view.sceneRect()).boundingRect();
        return QRectF(view.viewport()->rect()).adjusted(-3, -3, 3, 3).contains(shown);
    };
    QVERIFY(!isWhole());
    QTest::keyClick(&view, Qt::Key_0, Qt::ControlModifier);
    QVERIFY(isWhole());
    picture.resize(400, 300);
    QTRY_VERIFY(isWhole());
    controlNamed<QToolButton>(picture, QStringLiteral("Zoom in"))->click();
    QVERIFY(!isWhole());
}

void TestPictures::savesPictures_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isWeek");
    QTest::newRow("week, SVG") << "week.svg" << true;
    QTest::newRow("week, PNG") << "week.png" << true;
    QTest::newRow("map, SVG") << "map.SVG" << false;
    QTest::newRow("map, PNG") << "map.PNG" << false;
}

void TestPictures::savesPictures()
{
    QFETCH(QString, name);
    QFETCH(bool, isWeek);
    WeekPicture week;
    MapPicture map;
    week.setContents(sampleContents());
    map.setContents(sampleContents());
    PictureView* view = map.view();
    if (isWeek)
        view = week.view();
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    QString error;
    QVERIFY2(view->save(path, error), qPrintable(error));
    const QSize size = view->sceneRect().size().toSize();
    if (name.endsWith(QLatin1String("svg"), Qt::CaseInsensitive)) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray svg = file.readAll();
        QVERIFY(svg.contains(isWeek ? "Lights out" : "Sound on again"));
        const QSvgRenderer renderer(svg);
        QVERIFY(renderer.isValid());
        QCOMPARE(renderer.viewBox().size(), size);
    } else {
        const QImage image(path);
        QCOMPARE(image.size(), (view->sceneRect().size() * 2).toSize());
        QVERIFY(image.pixelColor(image.width() - 1, image.height() - 1).lightness() > 200);
    }
}

void TestPictures::reportsPicturesThatCantBeSaved_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("error");
    QTest::newRow("another kind")
        << "picture.gif"
        << "picture.gif: no kind of picture that can be written; its name ends with .svg or .png.";
    QTest::newRow("no kind")
        << "picture"
        << "picture: no kind of picture that can be written; its name ends with .svg or .png.";
    QTest::newRow("no folder") << "/nowhere/picture.svg"
                               << "/nowhere/picture.svg: No such file or directory";
}

void TestPictures::reportsPicturesThatCantBeSaved()
{
    QFETCH(QString, path);
    MapPicture map;
    QString error;
    QVERIFY(!map.view()->save(path, error));
    QTEST(error, "error");
}

void TestPictures::printsDarkOnLight()
{
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    WeekPicture picture;
    picture.setPalette(dark);
    picture.setContents(sampleContents());
    WeekView& view = *picture.view();
    QCOMPARE(view.scene()->palette().color(QPalette::Base), QColor(Qt::black));
    const QTemporaryDir folder;
    QString error;
    QVERIFY(view.save(folder.filePath(QStringLiteral("week.png")), error));
    const QImage image(folder.filePath(QStringLiteral("week.png")));
    QVERIFY(image.pixelColor(image.width() - 1, image.height() - 1).lightness() > 200);
    QCOMPARE(view.scene()->palette().color(QPalette::Base), QColor(Qt::black));
}

void TestPictures::printsLongMapsOnPages()
{
    const QTemporaryDir folder;
    const auto pages = [&folder](PictureView& view) {
        const QString path = folder.filePath(QStringLiteral("print.pdf"));
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        view.print(printer);
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll().count("/Type /Page\n") : 0;
    };
    MapPicture map;
    QCOMPARE(pages(*map.view()), 1);
    map.setContents(fullUnit(2));
    QVERIFY(pages(*map.view()) > 3);
    WeekPicture week;
    week.setContents(sampleContents());
    QVERIFY(pages(*week.view()) <= 2);
}

void TestPictures::drawsNonsense()
{
    WeekPicture week;
    MapPicture map;
    for (const Contents& contents : {nonsense(), Contents()}) {
        week.setContents(contents);
        map.setContents(contents);
        QVERIFY(!week.grab().isNull());
        QVERIFY(!map.grab().isNull());
    }
}

/** What takes time is making and drawing items; their number does not grow with the edges. */
void TestPictures::drawsAFullUnitWithFewItems()
{
    WeekPicture week;
    MapPicture map;
    const Contents contents = fullUnit(Limit::eventsOfTrigger);
    week.setContents(contents);
    map.setContents(contents);
    QCOMPARE(boxesOf(*week.view()).size(), Limit::tableEntries / 2 * WeekPlan::days);
    QVERIFY(
        week.view()->scene()->items().size() <= week.view()->itemCount() + mostItemsBesideBoxes);
    QCOMPARE(boxesOf(*map.view()).size(), Limit::tableEntries + Limit::events + 1);
    QVERIFY(map.view()->scene()->items().size() <= map.view()->itemCount() + mostItemsBesideBoxes);
}

void TestPictures::translatesWhileItRuns()
{
    class Translator : public QTranslator {
    public:
        bool isEmpty() const override { return false; }
        QString translate(const char*, const char* text, const char*, int) const override
        {
            return QString(QStringLiteral("[%1]")).arg(QString::fromUtf8(text));
        }
    };
    WeekPicture week;
    MapPicture map;
    week.setContents(sampleContents());
    map.setContents(sampleContents());
    Translator translator;
    QCoreApplication::installTranslator(&translator);
    QCoreApplication::processEvents();
    QVERIFY(controlNamed<QPushButton>(week, QStringLiteral("[Today]")));
    QVERIFY(controlNamed<QToolButton>(map, QStringLiteral("[Zoom in]")));
    QVERIFY(boxTitled(*map.view(), QStringLiteral("[Serial ports]")));
    QCOMPARE(week.view()->accessibleName(), QStringLiteral("[Week]"));
    QCoreApplication::removeTranslator(&translator);
    QCoreApplication::processEvents();
    QVERIFY(boxTitled(*map.view(), QStringLiteral("Serial ports")));
}

void TestPictures::hasNames()
{
    WeekPicture week;
    MapPicture map;
    QCOMPARE(controlsWithoutName(week), QStringList());
    QCOMPARE(controlsWithoutName(map), QStringList());
}

QTEST_MAIN(TestPictures)
#include "tst_pictures.moc"
