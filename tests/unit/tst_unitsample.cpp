// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitsample.h"

#include <QtCore/QFile>
#include <QtTest/QtTest>

#include <cstdio>

using namespace QuadrelUnit;

namespace {

/** What was written to a memory: a line for each 32 bytes that are not all 0, without zeros at the
 * end. */
QStringList linesOf(const UnitMemory& memory)
{
    constexpr int width = 32;
    QStringList lines;
    for (const quint32 page : memory.pages()) {
        for (quint32 address = page; address < page + UnitMemory::pageSize; address += width) {
            QByteArray bytes = memory.read(address, width);
            while (bytes.endsWith('\0'))
                bytes.chop(1);
            if (!bytes.isEmpty())
                lines.append(QStringLiteral("%1 %2")
                                 .arg(address, 8, 16, QLatin1Char('0'))
                                 .arg(QString::fromLatin1(bytes.toHex())));
        }
    }
    return lines;
}

} // namespace

/** Documents, tests and people count on what the sample unit stores. */
class TestUnitSample : public QObject {
    Q_OBJECT

private slots:
    void staysAsItIs();
};

void TestUnitSample::staysAsItIs()
{
    UnitMemory memory;
    writeSample(memory);
    const QStringList lines = linesOf(memory);
    QFile file(QStringLiteral(SAMPLE_FILE));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList expected =
        QString::fromLatin1(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    // A change on purpose is written with what this prints.
    if (lines != expected)
        std::puts(qPrintable(lines.join(QLatin1Char('\n'))));
    QCOMPARE(lines, expected);
}

QTEST_APPLESS_MAIN(TestUnitSample)
#include "tst_unitsample.moc"
