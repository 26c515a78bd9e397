// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtTest/QtTest>

#include <limits>

#include "recordchecks.h"

using ListModelCheck = void (*)();
Q_DECLARE_METATYPE(ListModelCheck)

/**
 * What the four list models do alike. `Traits` names the `Model` and its `Record` and gives three
 * functions: `record(int)`, a record that is unequal to that of any other number, `list(Model&)`
 * and `setList(Model&, QList<Record>)`.
 */
template <typename Traits> class ListModelChecks {
    using Model = typename Traits::Model;
    using Record = typename Traits::Record;
    using Records = QList<Record>;

    static constexpr int lowest = std::numeric_limits<int>::min();
    static constexpr int highest = std::numeric_limits<int>::max();

public:
    /** A row for each check. */
    static void addRows()
    {
        QTest::addColumn<ListModelCheck>("check");
        QTest::newRow("starts empty") << ListModelCheck(&startsEmpty);
        QTest::newRow("appends") << ListModelCheck(&appends);
        QTest::newRow("inserts") << ListModelCheck(&inserts);
        QTest::newRow("clamps the index of insert") << ListModelCheck(&clampsInsertion);
        QTest::newRow("inserts into an empty list") << ListModelCheck(&insertsIntoEmptyList);
        QTest::newRow("removes") << ListModelCheck(&removes);
        QTest::newRow("ignores a bad index of removeAt") << ListModelCheck(&ignoresBadRemoval);
        QTest::newRow("replaces") << ListModelCheck(&replaces);
        QTest::newRow("hands out copies") << ListModelCheck(&handsOutCopies);
        QTest::newRow("clears") << ListModelCheck(&clears);
        QTest::newRow("exchanges the list") << ListModelCheck(&exchangesList);
        QTest::newRow("shares until a write") << ListModelCheck(&sharesUntilWrite);
        QTest::newRow("assigns") << ListModelCheck(&assigns);
        QTest::newRow("compares") << ListModelCheck(&compares);
        QTest::newRow("keeps object state") << ListModelCheck(&keepsObjectState);
    }

    /** Runs the check of the current row. */
    static void checkRow()
    {
        QFETCH(ListModelCheck, check);
        check();
    }

private:
    static Model model(std::initializer_list<int> numbers)
    {
        Model result;
        for (const int number : numbers)
            result.push_back(Traits::record(number));
        return result;
    }

    static Records records(std::initializer_list<int> numbers)
    {
        Records result;
        for (const int number : numbers)
            result.append(Traits::record(number));
        return result;
    }

    static bool holds(Model& model, std::initializer_list<int> numbers)
    {
        return model.size() == int(numbers.size()) && Traits::list(model) == records(numbers);
    }

    static bool share(Model& one, Model& other)
    {
        return Traits::list(one).isSharedWith(Traits::list(other));
    }

    static void startsEmpty()
    {
        Model model;
        QCOMPARE(model.size(), 0);
        QVERIFY(Traits::list(model).isEmpty());
        QVERIFY(!model.parent());
        const QMetaObject& meta = Model::staticMetaObject;
        QCOMPARE(meta.superClass(), &QObject::staticMetaObject);
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(RecordChecks::ownMethods(meta), 0);
        QCOMPARE(RecordChecks::ownEnumerators(meta), 0);
    }

    static void appends()
    {
        Model model;
        model.push_back(Traits::record(2));
        model.push_back(Traits::record(1));
        model.push_back(Traits::record(2));
        QVERIFY(holds(model, {2, 1, 2}));
        QVERIFY(model.at(1) == Traits::record(1));
    }

    static void inserts()
    {
        Model list = model({1, 2});
        list.insert(1, Traits::record(3));
        QVERIFY(holds(list, {1, 3, 2}));
        list.insert(0, Traits::record(4));
        QVERIFY(holds(list, {4, 1, 3, 2}));
        list.insert(list.size(), Traits::record(5));
        QVERIFY(holds(list, {4, 1, 3, 2, 5}));
    }

    static void clampsInsertion()
    {
        for (const int front : {lowest, -5, -1, 0}) {
            Model list = model({1, 2});
            list.insert(front, Traits::record(3));
            QVERIFY2(holds(list, {3, 1, 2}), qPrintable(QString::number(front)));
        }
        for (const int end : {2, 3, 2 + 5, 1000, highest}) {
            Model list = model({1, 2});
            list.insert(end, Traits::record(3));
            QVERIFY2(holds(list, {1, 2, 3}), qPrintable(QString::number(end)));
        }
    }

    static void insertsIntoEmptyList()
    {
        for (const int index : {lowest, -1, 0, 1, highest}) {
            Model list;
            list.insert(index, Traits::record(1));
            QVERIFY2(holds(list, {1}), qPrintable(QString::number(index)));
        }
    }

    static void removes()
    {
        Model list = model({1, 2, 3, 4});
        list.removeAt(1);
        QVERIFY(holds(list, {1, 3, 4}));
        list.removeAt(0);
        QVERIFY(holds(list, {3, 4}));
        list.removeAt(1);
        QVERIFY(holds(list, {3}));
        list.removeAt(0);
        QVERIFY(holds(list, {}));
    }

    static void ignoresBadRemoval()
    {
        for (const int index : {lowest, -1, 2, 3, highest}) {
            Model list = model({1, 2});
            Model other(list);
            list.removeAt(index);
            QVERIFY2(holds(list, {1, 2}), qPrintable(QString::number(index)));
            QVERIFY(share(list, other));
        }
        for (const int index : {lowest, -1, 0, 1, highest}) {
            Model list;
            list.removeAt(index);
            QCOMPARE(list.size(), 0);
        }
    }

    static void replaces()
    {
        Model list = model({1, 2, 3});
        list.replace(0, Traits::record(4));
        list.replace(2, Traits::record(5));
        QVERIFY(holds(list, {4, 2, 5}));
    }

    static void handsOutCopies()
    {
        Model list = model({1});
        QObject parent;
        Record owned(Traits::record(2));
        owned.setParent(&parent);
        list.push_back(owned);
        QVERIFY(!list.at(1).parent());

        Record copy(list.at(0));
        copy = Traits::record(3);
        QVERIFY(holds(list, {1, 2}));

        Records copies = Traits::list(list);
        copies.removeFirst();
        QVERIFY(holds(list, {1, 2}));
    }

    static void clears()
    {
        Model list = model({1, 2});
        list.clear();
        QVERIFY(holds(list, {}));
        list.clear();
        QVERIFY(holds(list, {}));
        list.push_back(Traits::record(3));
        QVERIFY(holds(list, {3}));
    }

    static void exchangesList()
    {
        Model list = model({1, 2});
        Records given = records({3});
        Traits::setList(list, given);
        QVERIFY(holds(list, {3}));
        given.append(Traits::record(4));
        QVERIFY(holds(list, {3}));

        Model other(list);
        Traits::setList(list, Traits::list(list));
        QVERIFY(holds(list, {3}));
        QVERIFY(share(list, other));

        Traits::setList(list, Records());
        QVERIFY(holds(list, {}));
        QVERIFY(holds(other, {3}));
    }

    static void sharesUntilWrite()
    {
        const auto write = [](Model& model, int way) {
            switch (way) {
            case 0:
                return model.push_back(Traits::record(3));
            case 1:
                return model.insert(0, Traits::record(3));
            case 2:
                return model.removeAt(0);
            case 3:
                return model.replace(0, Traits::record(3));
            case 4:
                return model.clear();
            default:
                return Traits::setList(model, records({3}));
            }
        };
        for (int way = 0; way < 6; ++way) {
            Model original = model({1, 2});
            Model copy(original);
            QVERIFY(share(original, copy));
            QVERIFY(copy == original);
            write(copy, way);
            QVERIFY(!share(original, copy));
            QVERIFY(!(copy == original));
            QVERIFY(holds(original, {1, 2}));

            Model assigned;
            assigned = original;
            QVERIFY(share(original, assigned));
            write(original, way);
            QVERIFY(holds(assigned, {1, 2}));
        }
    }

    static void assigns()
    {
        Model source = model({1, 2});
        Model target = model({3});
        Model& result = (target = source);
        QCOMPARE(&result, &target);
        QVERIFY(share(source, target));
        target = source;
        QVERIFY(share(source, target));
        QVERIFY(holds(target, {1, 2}));

        const Model& alias = target;
        target = alias;
        QVERIFY(holds(target, {1, 2}));
        QVERIFY(share(source, target));
    }

    static void compares()
    {
        QVERIFY(Model() == Model());
        QVERIFY(model({1, 2}) == model({1, 2}));
        QVERIFY(!(model({1, 2}) == model({2, 1})));
        QVERIFY(!(model({1, 2}) == model({1, 3})));
        QVERIFY(!(model({1, 2}) == model({1})));
        QVERIFY(!(model({1}) == model({1, 2})));
        QVERIFY(!(model({}) == model({1})));
        const Model list = model({1, 2});
        QVERIFY(list == list);
        QVERIFY(list == Model(list));
    }

    static void keepsObjectState() { RecordChecks::checkObjectStateStays(model({1, 2})); }
};
