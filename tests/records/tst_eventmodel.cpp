// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include "eventmodel.h"
#include "listmodelchecks.h"

namespace {

struct Traits {
    using Model = EventModel;
    using Record = EventInfo;

    static Record record(int number)
    {
        Record record;
        record.setEventName(QString::number(number));
        return record;
    }

    static QList<Record> list(Model& model) { return model.getEventInfo(); }
    static void setList(Model& model, QList<Record> records) { model.setEventInfo(records); }
};

} // namespace

class TestEventModel : public QObject {
    Q_OBJECT

private slots:
    void isListOfRecords_data() { ListModelChecks<Traits>::addRows(); }
    void isListOfRecords() { ListModelChecks<Traits>::checkRow(); }
    void keepsEqualIds();
};

void TestEventModel::keepsEqualIds()
{
    EventModel model;
    model.push_back(EventInfo());
    model.push_back(EventInfo());
    QCOMPARE(model.size(), 2);
    QVERIFY(model.at(0) == model.at(1));
}

QTEST_APPLESS_MAIN(TestEventModel)
#include "tst_eventmodel.moc"
