#include "unitmemoryfile.h"
#include "unitsample.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
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
    void tellsOfAFailedSave();
    void readsNoMissingFile();
    void refusesForeignFiles_data();
    void refusesForeignFiles();
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
    QVERIFY(saved.wait(30000));
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
    QVERIFY(failed.wait(30000));
    QCOMPARE(failed.first().first().toString(), error);

    // What failed is not saved yet: it is tried again at the end, and told again.
    error.clear();
    QVERIFY(!file.saveNoted(&error));
    QCOMPARE(error, failed.first().first().toString());
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QVERIFY(file.saveNoted(&error));
    QVERIFY(file.exists());
}

void TestUnitMemoryFile::readsNoMissingFile()
{
    ControlUnit unit;
    UnitMemoryFile file(m_path, &unit);
    QString error;
    QVERIFY(!file.load(&error));
    QVERIFY(error.startsWith(QStringLiteral("cannot read ") + m_path));
}

void TestUnitMemoryFile::refusesForeignFiles_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    const QString foreign = QStringLiteral(" is no memory of a simulated unit");
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
