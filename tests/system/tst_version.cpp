// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "quadrelbll_version.h"

#include <QtCore/QVersionNumber>
#include <QtTest/QTest>

/** The version of the headers, of the loaded library, and of the build. */
class TestVersion : public QObject {
    Q_OBJECT

private slots:
    void theLoadedLibraryIsThatOfTheHeaders();
    void theBuildHasTheVersionOfTheHeaders();
    void numbersCompareAsVersionsDo_data();
    void numbersCompareAsVersionsDo();
};

void TestVersion::theLoadedLibraryIsThatOfTheHeaders()
{
    QCOMPARE(quadrelbllVersion(), QUADRELBLL_VERSION_STRING);
    const QVersionNumber loaded =
        QVersionNumber::fromString(QString::fromLatin1(quadrelbllVersion()));
    QCOMPARE(loaded,
        QVersionNumber(
            QUADRELBLL_VERSION_MAJOR, QUADRELBLL_VERSION_MINOR, QUADRELBLL_VERSION_PATCH));
}

void TestVersion::theBuildHasTheVersionOfTheHeaders()
{
    QCOMPARE(QUADRELBLL_VERSION_STRING, BUILD_VERSION);
}

void TestVersion::numbersCompareAsVersionsDo_data()
{
    QTest::addColumn<int>("earlier");
    QTest::addColumn<int>("later");
    QTest::newRow("patch") << QUADRELBLL_VERSION_CHECK(0, 1, 0)
                           << QUADRELBLL_VERSION_CHECK(0, 1, 1);
    QTest::newRow("minor") << QUADRELBLL_VERSION_CHECK(0, 1, 255)
                           << QUADRELBLL_VERSION_CHECK(0, 2, 0);
    QTest::newRow("major") << QUADRELBLL_VERSION_CHECK(1, 255, 255)
                           << QUADRELBLL_VERSION_CHECK(2, 0, 0);
    QTest::newRow("this one") << QUADRELBLL_VERSION - 1 << QUADRELBLL_VERSION;
}

void TestVersion::numbersCompareAsVersionsDo()
{
    QFETCH(int, earlier);
    QFETCH(int, later);
    QVERIFY(earlier < later);
}

QTEST_GUILESS_MAIN(TestVersion)

#include "tst_version.moc"
