// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include "listmodelchecks.h"
#include "triggertimemodel.h"

namespace {

struct Traits {
    using Model = TriggerTimeModel;
    using Record = TriggerTimeInfo;

    static Record record(int number)
    {
        Record record;
        record.setSelectWeekly(QString::number(number));
        return record;
    }

    static QList<Record> list(Model& model) { return model.getTriggerInfo(); }
    static void setList(Model& model, QList<Record> records) { model.setTriggerInfo(records); }
};

} // namespace

class TestTriggerTimeModel : public QObject {
    Q_OBJECT

private slots:
    void isListOfRecords_data() { ListModelChecks<Traits>::addRows(); }
    void isListOfRecords() { ListModelChecks<Traits>::checkRow(); }
};

QTEST_APPLESS_MAIN(TestTriggerTimeModel)
#include "tst_triggertimemodel.moc"
