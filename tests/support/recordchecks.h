// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QMetaEnum>
#include <QtCore/QMetaProperty>
#include <QtCore/QObject>
#include <QtCore/QVariant>
#include <QtTest/QtTest>

#include <initializer_list>

/** What every value record must do, whatever its fields. */
namespace RecordChecks {

struct Property {
    const char* name;
    const char* type;
};

/** A row for each property, in the order in which the class must declare them. */
inline void addPropertyRows(const QMetaObject& record, std::initializer_list<Property> properties)
{
    QCOMPARE(record.propertyCount() - record.propertyOffset(), int(properties.size()));
    QTest::addColumn<int>("index");
    QTest::addColumn<QByteArray>("type");
    int index = 0;
    for (const Property& property : properties)
        QTest::newRow(property.name) << index++ << QByteArray(property.type);
}

inline void checkPropertyRow(const QMetaObject& record)
{
    QFETCH(int, index);
    QFETCH(QByteArray, type);
    const QMetaProperty property = record.property(record.propertyOffset() + index);
    QCOMPARE(property.name(), QTest::currentDataTag());
    QCOMPARE(QByteArray(property.typeName()), type);
    QVERIFY(property.isReadable());
    QVERIFY(property.isWritable());
    QVERIFY(property.isStored());
    QVERIFY(property.isDesignable());
    QVERIFY(property.isScriptable());
    QVERIFY(!property.hasNotifySignal());
    QVERIFY(!property.isResettable());
}

struct Change {
    const char* property;
    QVariant value;
};

/** A row for each property with a value that is not the default. */
inline void addChangeRows(std::initializer_list<Change> changes)
{
    QTest::addColumn<QVariant>("value");
    for (const Change& change : changes)
        QTest::newRow(change.property) << change.value;
}

/** The value of a property; the number of an enumeration, which has no text form. */
inline QVariant plainValue(const QObject& record, const char* property)
{
    const QVariant value = record.property(property);
    return value.userType() < QMetaType::User ? value : QVariant(value.toInt());
}

/** One changed field makes a record unequal, and a copy or an assignment carries it. */
template <typename Record> void checkChangeRow()
{
    QFETCH(QVariant, value);
    const char* property = QTest::currentDataTag();

    const Record untouched;
    Record changed;
    const QVariant before = changed.property(property);
    QVERIFY(changed.setProperty(property, value));
    QCOMPARE(plainValue(changed, property), value);
    QVERIFY(!(changed == untouched));
    QVERIFY(!(untouched == changed));

    const Record copy(changed);
    QVERIFY(copy == changed);
    QCOMPARE(plainValue(copy, property), value);

    Record assigned;
    assigned = changed;
    QVERIFY(assigned == changed);

    QVERIFY(changed.setProperty(property, before));
    QVERIFY(changed == untouched);
    QVERIFY(copy == assigned);
}

/** The value is copied; what makes the object an object of the framework is not. */
template <typename Record> void checkObjectStateStays(const Record& sample)
{
    QObject parent;
    Record source(sample);
    source.setParent(&parent);
    source.setObjectName(QStringLiteral("source"));
    source.setProperty("dynamic", 1);

    const Record copy(source);
    QVERIFY(copy == source);
    QVERIFY(!copy.parent());
    QVERIFY(copy.objectName().isEmpty());
    QVERIFY(!copy.property("dynamic").isValid());

    QObject otherParent;
    Record target;
    target.setParent(&otherParent);
    target.setObjectName(QStringLiteral("target"));
    Record& result = (target = source);
    QCOMPARE(&result, &target);
    QVERIFY(target == source);
    QCOMPARE(target.parent(), &otherParent);
    QCOMPARE(target.objectName(), QStringLiteral("target"));
    QVERIFY(!target.property("dynamic").isValid());

    const Record& alias = target;
    target = alias;
    QVERIFY(target == sample);
}

/** A row for each enumeration that the construction of a record registers. */
inline void addEnumerationRows(std::initializer_list<const char*> names)
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : names)
        QTest::newRow(name) << QByteArray(name);
}

/**
 * Once there is a record, the framework knows the enumeration by its plain name and carries it in
 * four bytes. Test this first, so that nothing but the record here can have registered it.
 */
template <typename Record> void checkEnumerationRow()
{
    QFETCH(QByteArray, name);
    const Record record;
    const int type = QMetaType::type(name.constData());
    QVERIFY2(type != QMetaType::UnknownType, name.constData());
    QCOMPARE(QMetaType::sizeOf(type), 4);
    QVERIFY(QMetaType::typeFlags(type) & QMetaType::IsEnumeration);
}

inline int ownEnumerators(const QMetaObject& record)
{
    return record.enumeratorCount() - record.enumeratorOffset();
}

inline int ownMethods(const QMetaObject& record)
{
    return record.methodCount() - record.methodOffset();
}

/** The record's one enumeration has these keys, whose values count from 0. */
inline void checkOnlyEnumerator(
    const QMetaObject& record, const char* name, std::initializer_list<const char*> keys)
{
    QCOMPARE(ownEnumerators(record), 1);
    const QMetaEnum enumerator = record.enumerator(record.enumeratorOffset());
    QCOMPARE(enumerator.name(), name);
    QCOMPARE(enumerator.scope(), record.className());
    QVERIFY(!enumerator.isFlag());
    QCOMPARE(enumerator.keyCount(), int(keys.size()));
    int value = 0;
    for (const char* key : keys) {
        QCOMPARE(enumerator.key(value), key);
        QCOMPARE(enumerator.value(value), value);
        ++value;
    }
}

} // namespace RecordChecks
