#include "unitaddresses.h"
#include "unitsample.h"

#include <QtCore/QCryptographicHash>
#include <QtTest/QtTest>

using namespace QuadrelUnit;

class TestUnitSample : public QObject {
    Q_OBJECT

private slots:
    void staysAsItIs_data();
    void staysAsItIs();
};

// Documents show the sample, and scripts of users may count on it.
void TestUnitSample::staysAsItIs_data()
{
    QTest::addColumn<quint32>("address");
    QTest::addColumn<int>("length");
    QTest::addColumn<QByteArray>("digest");
    QTest::newRow("serial ports") << Address::serialPorts << 9 * 7
                                  << QByteArray("f9fa3cdf1e0e1934c740c0c16fef01c48429eaa4");
    QTest::newRow("IO lines") << Address::ioLines << 12 * 2
                              << QByteArray("a13d516c634b9e980f56c5ce2f6794cefc8e7c99");
    QTest::newRow("events") << Address::eventCount << 1 + 32 * 512
                            << QByteArray("e4f1851844e7eceef03f6a1c6b84e282b5784f70");
    QTest::newRow("triggers") << Address::triggerCount << 1 + 17 * 512
                              << QByteArray("dcfd61ca8338eda0790854976e2c2656c75a8c12");
}

void TestUnitSample::staysAsItIs()
{
    QFETCH(quint32, address);
    QFETCH(int, length);
    QFETCH(QByteArray, digest);
    UnitMemory memory;
    writeSample(memory);
    const QByteArray bytes = memory.read(address, length);
    QCOMPARE(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex(), digest);
}

QTEST_APPLESS_MAIN(TestUnitSample)
#include "tst_unitsample.moc"
