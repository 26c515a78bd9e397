// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtTest/QtTest>

#include "listmodelchecks.h"
#include "projectmodel.h"

namespace {

struct Traits {
    using Model = ProjectModel;
    using Record = ProjectInfo;

    static Record record(int number)
    {
        Record record;
        record.setProjectRemark(QString::number(number));
        return record;
    }

    static QList<Record> list(Model& model) { return model.getProjectInfo(); }
    static void setList(Model& model, QList<Record> records) { model.setProjectInfo(records); }
};

} // namespace

class TestProjectModel : public QObject {
    Q_OBJECT

private slots:
    void isListOfRecords_data() { ListModelChecks<Traits>::addRows(); }
    void isListOfRecords() { ListModelChecks<Traits>::checkRow(); }
};

QTEST_APPLESS_MAIN(TestProjectModel)
#include "tst_projectmodel.moc"
