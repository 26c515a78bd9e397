// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "patience.h"
#include "unitmemoryfile.h"
#include "unitsample.h"

#include <QtCore/QDir>
#include <QtCore/QSemaphore>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThreadPool>
#include <QtTest/QtTest>

using namespace QuadrelUnit;

class TestUnitMemoryFile : public QObject {
    Q_OBJECT

private slots:
    void init();
    void bringsBackWhatItSaved();
    void writesReadableLines();
    void replacesTheWholeMemory();
    void savesSoonAfterAChange();
    void savesWhatIsNotedAtTheEnd();
    void servesOnWhileItSaves();
    void savesBeforeItGoes();
    void tellsOfAFailedSave();
    void tellsOfAFailureOnce();
    void isClaimedOnce();
    void claimsWhatACrashLeftBehind();
    void letsGoWhatWasRemoved();
    void cannotClaimWithoutAFolder();
    void readsNoMissingFile();
    void readsRegularFilesOnly_data();
    void readsRegularFilesOnly();
    void refusesForeignFiles_data();
    void refusesForeignFiles();
    void takesClocksInRange_data();
    void takesClocksInRange();
    void readsNoMoreThanItsLimit();
    void readsLinesOfItsOwnKind_data();
    void readsLinesOfItsOwnKind();

private:
    QByteArray content() const;
    void setContent(const QByteArray& content);

    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_path;
};

void TestUnitMemoryFile::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    m_path = m_directory->filePath(QStringLiteral("unit.memory"));
}

QByteArray TestUnitMemoryFile::content() const
{
    QFile file(m_path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestUnitMemoryFile::setContent(const QByteArray& content)
{
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

void TestUnitMemoryFile::bringsBackWhatItSaved()
{
    ControlUnit unit;
    writeSample(unit.memory());
    unit.memory().write(0xFFFFFFFD, "abcdef");
    unit.clock().setAhead(-123456789);
    UnitMemoryFile file(m_path, &unit);
    QString error;
    QVERIFY(!file.exists());
    QVERIFY2(file.save(&error), qPrintable(error));
    QVERIFY(file.exists());

    ControlUnit other;
    UnitMemoryFile otherFile(m_path, &other);
    QVERIFY2(otherFile.load(&error), qPrintable(error));
    QVERIFY(other.memory() == unit.memory());
    QCOMPARE(*other.clock().ahead(), qint64(-123456789));
}

void TestUnitMemoryFile::writesReadableLines()
{
    ControlUnit unit;
    unit.memory() = UnitMemory();
    unit.memory().write(0xF0020001, "A");
    unit.memory().write(0x0000100F, "zz");
    UnitMemoryFile file(m_path, &unit);
    QString error;
    QVERIFY(file.save(&error));
    QCOMPARE(content(),
        QByteArray("quadrelsim memory 1\n"
                   "00001000: 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 7a\n"
                   "00001010: 7a 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00\n"
                   "f0020000: 00 41 00 00 00 00 00 00 00 00 00 00 00 00 00 00\n"));
    unit.clock().setAhead(28800000);
    QVERIFY(file.save(&error));
    QCOMPARE(content().split('\n').value(1), QByteArray("clock: 28800000"));
}

void TestUnitMemoryFile::replacesTheWholeMemory()
{
    setContent("quadrelsim memory 1\n");
    ControlUnit unit;
    unit.clock().setAhead(5);
    UnitMemoryFile file(m_path, &unit);
    QString error;
    QVERIFY(file.load(&error));
    QVERIFY(unit.memory() == UnitMemory());
    QVERIFY(!unit.clock().ahead());
}

void TestUnitMemoryFile::savesSoonAfterAChange()
{
    ControlUnit unit;
    UnitMemoryFile file(m_path, &unit);
    QSignalSpy saved(&file, &UnitMemoryFile::saved);
    unit.memory().write(0x10, "first");
    file.noteChange();
    unit.memory().write(0x20, "second");
    file.noteChange();
    QVERIFY(!file.exists());
    QVERIFY(saved.wait(patience));
    QCOMPARE(saved.size(), 1);
    QVERIFY(content().contains("00000010: 66 69 72 73 74"));
    QVERIFY(content().contains("00000020: 73 65 63 6f 6e 64"));
}

void TestUnitMemoryFile::savesWhatIsNotedAtTheEnd()
{
    ControlUnit unit;
    UnitMemoryFile file(m_path, &unit);
    QString error;
    QVERIFY(file.saveNoted(&error));
    QVERIFY(!file.exists());
    file.noteChange();
    QVERIFY(file.saveNoted(&error));
    QVERIFY(file.exists());
    QVERIFY(QFile::remove(m_path));
    QVERIFY(file.saveNoted(&error));
    QVERIFY(!file.exists());
}

void TestUnitMemoryFile::servesOnWhileItSaves()
{
    // The one thread of the pool is busy, so that the save waits for as long as this test likes.
    QThreadPool& pool = *QThreadPool::globalInstance();
    const int threads = pool.maxThreadCount();
    pool.setMaxThreadCount(1);
    QSemaphore gate;
    pool.start([&gate] { gate.acquire(); });

    ControlUnit unit;
    UnitMemoryFile file(m_path, &unit);
    QSignalSpy saved(&file, &UnitMemoryFile::saved);
    unit.memory().write(0x10, "old");
    file.noteChange();
    // A timer that starts later and runs longer than the pause ends after it.
    QTest::qWait(300);
    QVERIFY(saved.isEmpty());
    QVERIFY(!file.exists());

    // What changes now is not a part of the save that runs, and is saved by the next one.
    unit.memory().write(0x10, "new");
    file.noteChange();
    gate.release();
    QVERIFY(saved.wait(patience));
    QVERIFY(content().contains("00000010: 6f 6c 64"));
    QVERIFY(saved.wait(patience));
    QVERIFY(content().contains("00000010: 6e 65 77"));
    QCOMPARE(saved.size(), 2);
    pool.setMaxThreadCount(threads);
}

void TestUnitMemoryFile::savesBeforeItGoes()
{
    ControlUnit unit;
    QSemaphore gate;
    {
        UnitMemoryFile file(m_path, &unit);
        QThreadPool& pool = *QThreadPool::globalInstance();
        const int threads = pool.maxThreadCount();
        pool.setMaxThreadCount(1);
        pool.start([&gate] { gate.acquire(); });
        file.noteChange();
        QTest::qWait(300);
        QVERIFY(!file.exists());
        gate.release();
        pool.setMaxThreadCount(threads);
    }
    QVERIFY(content().startsWith("quadrelsim memory 1\n"));
}

void TestUnitMemoryFile::tellsOfAFailedSave()
{
    ControlUnit unit;
    const QString path = m_directory->filePath(QStringLiteral("no/such/folder"));
    UnitMemoryFile file(path, &unit);
    QString error;
    QVERIFY(!file.save(&error));
    QVERIFY(error.startsWith(QStringLiteral("cannot save ") + path + QStringLiteral(": ")));

    QSignalSpy failed(&file, &UnitMemoryFile::failed);
    file.noteChange();
    QVERIFY(failed.wait(patience));
    QCOMPARE(failed.first().first().toString(), error);

    // What failed is not saved yet: it is tried again at the end, and reported again.
    error.clear();
    QVERIFY(!file.saveNoted(&error));
    QCOMPARE(error, failed.first().first().toString());
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QVERIFY(file.saveNoted(&error));
    QVERIFY(file.exists());
}

void TestUnitMemoryFile::tellsOfAFailureOnce()
{
    ControlUnit unit;
    const QString path = m_directory->filePath(QStringLiteral("folder/unit.memory"));
    UnitMemoryFile file(path, &unit);
    QSignalSpy failed(&file, &UnitMemoryFile::failed);
    QSignalSpy saved(&file, &UnitMemoryFile::saved);
    file.noteChange();
    QVERIFY(failed.wait(patience));
    // It is tried again by itself, and silently.
    QTest::qWait(1500);
    QCOMPARE(failed.size(), 1);
    QVERIFY(QDir(m_directory->path()).mkdir(QStringLiteral("folder")));
    QVERIFY(saved.wait(patience));
    QVERIFY(QDir(m_directory->filePath(QStringLiteral("folder"))).removeRecursively());
    file.noteChange();
    QVERIFY(failed.wait(patience));
    QCOMPARE(failed.size(), 2);
}

void TestUnitMemoryFile::isClaimedOnce()
{
    ControlUnit unit;
    QString error;
    const QString link = m_directory->filePath(QStringLiteral("link"));
    {
        UnitMemoryFile first(m_path, &unit);
        QVERIFY2(first.claim(&error), qPrintable(error));
        QVERIFY(first.save(&error));
        QVERIFY(QFile::link(m_path, link));
        for (const QString& path : {m_path, link}) {
            UnitMemoryFile second(path, &unit);
            QVERIFY(!second.claim(&error));
            QCOMPARE(error,
                QStringLiteral("%1 is in use by process %2")
                    .arg(path)
                    .arg(QCoreApplication::applicationPid()));
        }
        UnitMemoryFile other(m_directory->filePath(QStringLiteral("other")), &unit);
        QVERIFY(other.claim(&error));
    }
    UnitMemoryFile third(link, &unit);
    QVERIFY2(third.claim(&error), qPrintable(error));
}

void TestUnitMemoryFile::claimsWhatACrashLeftBehind()
{
    QFile lock(m_path + QStringLiteral(".lock"));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.write("1\n");
    lock.close();
    ControlUnit unit;
    UnitMemoryFile file(m_path, &unit);
    QString error;
    QVERIFY2(file.claim(&error), qPrintable(error));
    QVERIFY(lock.open(QIODevice::ReadOnly));
    QCOMPARE(lock.readAll(), QByteArray::number(QCoreApplication::applicationPid()) + '\n');
}

void TestUnitMemoryFile::letsGoWhatWasRemoved()
{
    ControlUnit unit;
    QString error;
    QFile lock(m_path + QStringLiteral(".lock"));
    auto first = std::make_unique<UnitMemoryFile>(m_path, &unit);
    QVERIFY(first->claim(&error));
    QVERIFY(lock.remove());
    auto second = std::make_unique<UnitMemoryFile>(m_path, &unit);
    QVERIFY2(second->claim(&error), qPrintable(error));
    first.reset();
    QVERIFY(lock.exists());
    second.reset();
    QVERIFY(!lock.exists());
}

void TestUnitMemoryFile::cannotClaimWithoutAFolder()
{
    ControlUnit unit;
    const QString path = m_directory->filePath(QStringLiteral("no/folder"));
    UnitMemoryFile file(path, &unit);
    QString error;
    QVERIFY(!file.claim(&error));
    QCOMPARE(error,
        QStringLiteral("cannot save %1: its folder is missing or cannot be written").arg(path));
}

void TestUnitMemoryFile::readsNoMissingFile()
{
    ControlUnit unit;
    UnitMemoryFile file(m_path, &unit);
    QString error;
    QVERIFY(!file.load(&error));
    QVERIFY(error.startsWith(QStringLiteral("cannot read ") + m_path));
}

void TestUnitMemoryFile::readsRegularFilesOnly_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("device") << QStringLiteral("/dev/zero");
    QTest::newRow("folder") << QDir::tempPath();
}

void TestUnitMemoryFile::readsRegularFilesOnly()
{
    QFETCH(QString, path);
    ControlUnit unit;
    UnitMemoryFile file(path, &unit);
    QString error;
    QVERIFY(!file.load(&error));
    QCOMPARE(error, QStringLiteral("cannot read %1: it is not a regular file").arg(path));
}

void TestUnitMemoryFile::refusesForeignFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const QString foreign = QStringLiteral(" is not a memory file of a simulated unit");
    QTest::newRow("empty") << QByteArray() << foreign;
    QTest::newRow("something else") << QByteArray("<?xml version=\"1.0\"?>\n") << foreign;
    QTest::newRow("a later version") << QByteArray("quadrelsim memory 2\n") << foreign;
    QTest::newRow("zeros without an end of line") << QByteArray(100000, '\0') << foreign;

    const QByteArray first("quadrelsim memory 1\n");
    const QString bad = QStringLiteral(", line 3: neither bytes nor a clock");
    const QByteArray good("00000000: 00\n");
    QTest::newRow("empty line") << first + good + "\n" << bad;
    QTest::newRow("no bytes") << first + good + "00000000:\n" << bad;
    QTest::newRow("17 bytes") << first + good + "00000000:" + QByteArray(" 00").repeated(17) << bad;
    QTest::newRow("half a byte") << first + good + "00000000: 00 0\n" << bad;
    QTest::newRow("no digit") << first + good + "00000000: 0g\n" << bad;
    QTest::newRow("short address") << first + good + "0000000: 00\n" << bad;
    QTest::newRow("long address") << first + good + "000000000: 00\n" << bad;
    QTest::newRow("clock without a number") << first + good + "clock: now\n" << bad;
    const QString range = QStringLiteral(", line 3: a clock of %1 is out of range: "
                                         "-6324480000000 to 6324480000000");
    for (const char* clock : {"6324480000001", "-6324480000001", "999999999999999999",
             "9223372036854775808", "-99999999999999999999999999"})
        QTest::newRow(clock) << first + good + "clock: " + clock + "\n"
                             << range.arg(QLatin1String(clock));
    QTest::newRow("very long line") << first + good + QByteArray(5000, '0') << bad;
}

void TestUnitMemoryFile::refusesForeignFiles()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    setContent(content);
    ControlUnit unit;
    const UnitMemory before = unit.memory();
    UnitMemoryFile file(m_path, &unit);
    QString error;
    QVERIFY(!file.load(&error));
    QCOMPARE(error, m_path + reason);
    QVERIFY(unit.memory() == before);
}

void TestUnitMemoryFile::takesClocksInRange_data()
{
    QTest::addColumn<qint64>("ahead");
    QTest::newRow("none") << qint64(0);
    QTest::newRow("most") << Q_INT64_C(6324480000000);
    QTest::newRow("least") << Q_INT64_C(-6324480000000);
}

void TestUnitMemoryFile::takesClocksInRange()
{
    QFETCH(qint64, ahead);
    setContent("quadrelsim memory 1\nclock: " + QByteArray::number(ahead) + '\n');
    ControlUnit unit;
    UnitMemoryFile file(m_path, &unit);
    QString error;
    QVERIFY2(file.load(&error), qPrintable(error));
    QCOMPARE(*unit.clock().ahead(), ahead);
}

void TestUnitMemoryFile::readsNoMoreThanItsLimit()
{
    setContent("quadrelsim memory 1\n00001000: 01\n00002000: 01\n00001001: 01\n00003000: 01\n");
    ControlUnit unit;
    unit.setMemoryLimit(2 * UnitMemory::pageSize);
    UnitMemoryFile file(m_path, &unit);
    QString error;
    QVERIFY(!file.load(&error));
    QCOMPARE(error, m_path + QStringLiteral(", line 5: over the memory limit of 8192 bytes"));

    unit.setMemoryLimit(3 * UnitMemory::pageSize);
    QVERIFY2(file.load(&error), qPrintable(error));
    QCOMPARE(unit.memory().size(), qint64(3 * UnitMemory::pageSize));
    QCOMPARE(unit.memory().limit(), qint64(3 * UnitMemory::pageSize));
}

void TestUnitMemoryFile::readsLinesOfItsOwnKind_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<quint32>("address");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("one byte") << QByteArray("00000001: ff") << quint32(1) << QByteArray("\xFF");
    QTest::newRow("capitals") << QByteArray("F00F0000: AB cd") << quint32(0xF00F0000)
                              << QByteArray("\xAB\xCD");
    QTest::newRow("other line ends")
        << QByteArray("00000001: 41 42 43\r") << quint32(1) << QByteArray("ABC");
    QTest::newRow("round the end")
        << QByteArray("ffffffff: 41 42 43") << quint32(0xFFFFFFFF) << QByteArray("ABC");
}

void TestUnitMemoryFile::readsLinesOfItsOwnKind()
{
    QFETCH(QByteArray, line);
    QFETCH(quint32, address);
    QFETCH(QByteArray, bytes);
    setContent("quadrelsim memory 1\n" + line + '\n');
    ControlUnit unit;
    UnitMemoryFile file(m_path, &unit);
    QString error;
    QVERIFY2(file.load(&error), qPrintable(error));
    QCOMPARE(unit.memory().read(address, bytes.size()), bytes);
}

QTEST_GUILESS_MAIN(TestUnitMemoryFile)
#include "tst_unitmemoryfile.moc"
