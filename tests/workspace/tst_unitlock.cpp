// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitlock.h"

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace QuadrelWorkspace;

namespace {

constexpr quint64 serialNumber = 310000001;
const QString serialText = QStringLiteral("the unit with serial number 310000001");

UnitAddress addressOf(const QString& text)
{
    return UnitAddress::fromText(text).value();
}

QString userName()
{
    return QString::fromLocal8Bit(getpwuid(getuid())->pw_name);
}

/** A folder that is not there yet, and the one file that a lock of the serial number makes in it.
 */
struct LockFolder {
    QTemporaryDir parent;
    QString path = parent.filePath(QStringLiteral("a/locks"));
    QString file = path + QStringLiteral("/serial-310000001");

    void write(const QByteArray& text) const
    {
        QVERIFY(QDir().mkpath(path));
        QFile lock(file);
        QVERIFY(lock.open(QIODevice::WriteOnly));
        QCOMPARE(lock.write(text), text.size());
    }
};

/** Another process, which holds a file's lock from the call of start() to its end. */
class OtherProcess {
public:
    void start(const QString& lockFile)
    {
        m_process.start(QStringLiteral("flock"),
            {lockFile, QStringLiteral("sh"), QStringLiteral("-c"),
                QStringLiteral("echo locked; exec cat")});
        QVERIFY(m_process.waitForStarted());
        while (!m_process.canReadLine())
            QVERIFY(m_process.waitForReadyRead());
        QCOMPARE(m_process.readLine(), QByteArray("locked\n"));
    }
    void end()
    {
        m_process.closeWriteChannel();
        QVERIFY(m_process.waitForFinished());
    }

private:
    QProcess m_process;
};

} // namespace

class TestUnitLock : public QObject {
    Q_OBJECT

private slots:
    void refusesTheSecond_data();
    void refusesTheSecond();
    void tellsTheHolder();
    void allowsWhatItHolds();
    void keepsDifferentUnitsApart_data();
    void keepsDifferentUnitsApart();
    void takesNoNumberForNoUnit();
    void freesWithTheObject();
    void isRefusedByAnotherProcess();
    void isNeverLeftOver();
    void isNotInherited();
    void doubtsWhatTheHolderWrote_data();
    void doubtsWhatTheHolderWrote();
    void writesOnlyToItsOwnFiles_data();
    void writesOnlyToItsOwnFiles();
    void tellsAFailure();
    void sharesItsFolder();
};

void TestUnitLock::refusesTheSecond_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QString>("unit");
    QTest::newRow("same") << "tcp://192.168.1.10:3801"
                          << "tcp://192.168.1.10:3801"
                          << "192.168.1.10:3801";
    QTest::newRow("another protocol") << "tcp://192.168.1.10:3801"
                                      << "udp://192.168.1.10"
                                      << "192.168.1.10:3801";
    QTest::newRow("another case") << "tcp://Hall.Example"
                                  << "tcp://hall.example:3801"
                                  << "hall.example:3801";
    QTest::newRow("IPv6") << "tcp://[::1]:3801"
                          << "tcp://[::1]"
                          << "[::1]:3801";
}

void TestUnitLock::refusesTheSecond()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(QString, unit);
    const LockFolder folder;
    QString error;
    UnitLock holder(folder.path);
    QVERIFY2(holder.takeAddress(addressOf(first), error), qPrintable(error));

    UnitLock other(folder.path);
    QVERIFY(!other.takeAddress(addressOf(second), error));
    QVERIFY(other.holder());
    QCOMPARE(error,
        QStringLiteral("%1 is in use by %2; wait until it has ended")
            .arg(unit, other.holder()->text()));
}

void TestUnitLock::tellsTheHolder()
{
    const LockFolder folder;
    QString error;
    const QDateTime start = QDateTime::currentDateTimeUtc();
    UnitLock holder(folder.path);
    QVERIFY2(holder.takeSerial(serialNumber, error), qPrintable(error));
    QVERIFY(!holder.holder());

    UnitLock other(folder.path);
    QVERIFY(!other.takeSerial(serialNumber, error));
    const LockHolder found = other.holder().value();
    QCOMPARE(found.process, static_cast<qint64>(getpid()));
    QCOMPARE(found.user, userName());
    QCOMPARE(found.program, QStringLiteral("tst_unitlock"));
    QVERIFY(qAbs(start.secsTo(found.since)) <= 60);
    QCOMPARE(error,
        QStringLiteral("%1 is in use by tst_unitlock (process %2, user %3) since %4; wait until "
                       "it has ended")
            .arg(serialText, QString::number(getpid()), userName(),
                found.since.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))));
}

void TestUnitLock::allowsWhatItHolds()
{
    const LockFolder folder;
    QString error;
    UnitLock lock(folder.path);
    for (int i = 0; i < 2; ++i) {
        QVERIFY2(lock.takeSerial(serialNumber, error), qPrintable(error));
        QVERIFY2(lock.takeAddress(addressOf(QStringLiteral("hall")), error), qPrintable(error));
    }
}

void TestUnitLock::keepsDifferentUnitsApart_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::newRow("host") << "192.168.1.10"
                          << "192.168.1.11";
    QTest::newRow("port") << "192.168.1.10:1"
                          << "192.168.1.10:2";
    QTest::newRow("a name in the folder") << "serial-310000001"
                                          << "serial-31000000";
}

void TestUnitLock::keepsDifferentUnitsApart()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    const LockFolder folder;
    QString error;
    UnitLock one(folder.path);
    UnitLock other(folder.path);
    QVERIFY2(one.takeAddress(addressOf(first), error), qPrintable(error));
    QVERIFY2(other.takeAddress(addressOf(second), error), qPrintable(error));
    QVERIFY2(one.takeSerial(serialNumber, error), qPrintable(error));
    QVERIFY2(other.takeSerial(serialNumber + 1, error), qPrintable(error));
}

void TestUnitLock::takesNoNumberForNoUnit()
{
    const LockFolder folder;
    QString error;
    UnitLock one(folder.path);
    UnitLock other(folder.path);
    QVERIFY(one.takeSerial(0, error));
    QVERIFY(other.takeSerial(0, error));
}

void TestUnitLock::freesWithTheObject()
{
    const LockFolder folder;
    QString error;
    {
        UnitLock holder(folder.path);
        QVERIFY(holder.takeSerial(serialNumber, error));
    }
    UnitLock other(folder.path);
    QVERIFY2(other.takeSerial(serialNumber, error), qPrintable(error));
}

void TestUnitLock::isRefusedByAnotherProcess()
{
    const LockFolder folder;
    folder.write(
        R"({"process":4711,"user":"anna","program":"quadrelctl","since":"2026-11-21T09:30:00Z"})");
    OtherProcess holder;
    holder.start(folder.file);
    UnitLock lock(folder.path);
    QString error;
    QVERIFY(!lock.takeSerial(serialNumber, error));
    const QDateTime since(QDate(2026, 11, 21), QTime(9, 30), Qt::UTC);
    QCOMPARE(error,
        QStringLiteral("%1 is in use by quadrelctl (process 4711, user anna) since %2; wait until "
                       "it has ended")
            .arg(serialText, since.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))));

    holder.end();
    QVERIFY2(lock.takeSerial(serialNumber, error), qPrintable(error));
    QVERIFY(!lock.holder());
}

/** What a killed process leaves is a file with its name, and no lock. */
void TestUnitLock::isNeverLeftOver()
{
    const LockFolder folder;
    folder.write(
        R"({"process":1,"user":"root","program":"quadrelctl","since":"2026-11-21T09:30:00Z"})");
    UnitLock lock(folder.path);
    QString error;
    QVERIFY2(lock.takeSerial(serialNumber, error), qPrintable(error));
}

void TestUnitLock::isNotInherited()
{
    const LockFolder folder;
    QString error;
    QProcess child;
    {
        UnitLock lock(folder.path);
        QVERIFY2(lock.takeSerial(serialNumber, error), qPrintable(error));
        child.start(QStringLiteral("cat"), QStringList());
        QVERIFY(child.waitForStarted());
    }
    UnitLock other(folder.path);
    QVERIFY2(other.takeSerial(serialNumber, error), qPrintable(error));
    child.closeWriteChannel();
    QVERIFY(child.waitForFinished());
}

void TestUnitLock::doubtsWhatTheHolderWrote_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("holder");
    const QString unknown = QStringLiteral("another program");
    QTest::newRow("nothing") << QByteArray() << unknown;
    QTest::newRow("no JSON") << QByteArray("4711\n") << unknown;
    QTest::newRow("no object") << QByteArray("[1]") << unknown;
    QTest::newRow("no process") << QByteArray(
        R"({"user":"a","program":"b","since":"2026-11-21T09:30:00Z"})")
                                << unknown;
    QTest::newRow("no time") << QByteArray(R"({"process":1,"user":"a","program":"b","since":"?"})")
                             << unknown;
    QTest::newRow("too long")
        << QByteArray(R"({"process":1,"user":"a","since":"2026-11-21T09:30:00Z","program":")")
            + QByteArray(100000, 'b') + "\"}"
        << unknown;
    QTest::newRow("control characters") << QByteArray(
        R"({"process":1,"user":"a\u001b[2Jb","program":"c\nd","since":"2026-11-21T09:30:00Z"})")
                                        << "c d (process 1, user a [2Jb) since ";
}

void TestUnitLock::doubtsWhatTheHolderWrote()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, holder);
    const LockFolder folder;
    folder.write(text);
    OtherProcess process;
    process.start(folder.file);
    UnitLock lock(folder.path);
    QString error;
    QVERIFY(!lock.takeSerial(serialNumber, error));
    QVERIFY2(error.startsWith(serialText + QStringLiteral(" is in use by ") + holder),
        qPrintable(error));
    process.end();
}

void TestUnitLock::writesOnlyToItsOwnFiles_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reason");
    QTest::newRow("symbolic link") << "symbolic"
                                   << "Too many levels of symbolic links";
    QTest::newRow("hard link") << "hard"
                               << "Operation not permitted";
    QTest::newRow("pipe") << "pipe"
                          << "Operation not permitted";
}

/** The folder belongs to all users: a lock may not become a way to another's files. */
void TestUnitLock::writesOnlyToItsOwnFiles()
{
    QFETCH(QString, kind);
    QFETCH(QString, reason);
    const LockFolder folder;
    folder.write("precious");
    const QByteArray path = QFile::encodeName(folder.file);
    const QByteArray precious = QFile::encodeName(folder.path + QStringLiteral("/precious"));
    QCOMPARE(std::rename(path.constData(), precious.constData()), 0);
    if (kind == QStringLiteral("symbolic"))
        QCOMPARE(symlink(precious.constData(), path.constData()), 0);
    else if (kind == QStringLiteral("hard"))
        QCOMPARE(link(precious.constData(), path.constData()), 0);
    else
        QCOMPARE(mkfifo(path.constData(), 0600), 0);

    QString error;
    {
        UnitLock lock(folder.path);
        QVERIFY(!lock.takeSerial(serialNumber, error));
    }
    QCOMPARE(error, QStringLiteral("cannot lock %1: %2: %3").arg(serialText, folder.file, reason));
    QFile file(QFile::decodeName(precious));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("precious"));
}

void TestUnitLock::tellsAFailure()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QString error;
    UnitLock lock(path);
    QVERIFY(!lock.takeAddress(addressOf(QStringLiteral("hall")), error));
    QCOMPARE(error,
        QStringLiteral("cannot lock hall:3801: %1/address-hall:3801: Not a directory").arg(path));
    QVERIFY(!lock.holder());
}

void TestUnitLock::sharesItsFolder()
{
    const LockFolder folder;
    const mode_t mask = umask(077);
    QString error;
    UnitLock lock(folder.path);
    const bool isTaken = lock.takeSerial(serialNumber, error);
    umask(mask);
    QVERIFY2(isTaken, qPrintable(error));
    struct stat status = {};
    QCOMPARE(stat(QFile::encodeName(folder.path).constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777, 01777u);
    QCOMPARE(stat(QFile::encodeName(folder.file).constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777, 0666u);
}

QTEST_GUILESS_MAIN(TestUnitLock)
#include "tst_unitlock.moc"
