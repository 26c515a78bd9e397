// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include "listmodelchecks.h"
#include "triggermodel.h"

namespace {

struct Traits {
    using Model = TriggerModel;
    using Record = TriggerInfo;

    static Record record(int number)
    {
        Record record;
        record.setTriggerId(number);
        return record;
    }

    static QList<Record> list(Model& model) { return model.getTriggerInfo(); }
    static void setList(Model& model, QList<Record> records) { model.setTriggerInfo(records); }
};

} // namespace

class TestTriggerModel : public QObject {
    Q_OBJECT

private slots:
    void isListOfRecords_data() { ListModelChecks<Traits>::addRows(); }
    void isListOfRecords() { ListModelChecks<Traits>::checkRow(); }
};

QTEST_APPLESS_MAIN(TestTriggerModel)
#include "tst_triggermodel.moc"
