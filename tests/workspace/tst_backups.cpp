// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "backups.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <sys/stat.h>

using namespace QuadrelWorkspace;

namespace {

constexpr quint64 serialNumber = 310000001;
const QByteArray document = "format: quadrel-unit/1\n";

/** A folder that is not there yet. */
struct BackupFolder {
    QTemporaryDir parent;
    QString path = parent.filePath(QStringLiteral("state/backups"));
    QString unit = path + QStringLiteral("/310000001");

    QString write(const QString& name, const QByteArray& text = document) const
    {
        QDir().mkpath(unit);
        QFile file(unit + QLatin1Char('/') + name);
        return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() ? file.fileName()
                                                                                  : QString();
    }
};

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestBackups : public QObject {
    Q_OBJECT

private slots:
    void keepsADocument();
    void namesTheTime();
    void listsTheNewestFirst();
    void keepsTheLastFifty();
    void countsOnWhenTheClockGoesBack();
    void leavesOtherFilesAlone();
    void keepsUnitsApart();
    void showsOneLine_data();
    void showsOneLine();
    void readsAChangeOfAnyone_data();
    void readsAChangeOfAnyone();
    void hidesWhatItKeeps();
    void tellsAFailure_data();
    void tellsAFailure();
};

void TestBackups::keepsADocument()
{
    const BackupFolder folder;
    const Backups backups(folder.path);
    QVERIFY(backups.list(serialNumber).isEmpty());
    QVERIFY(!backups.newest(serialNumber));
    QVERIFY(backups.serialNumbers().isEmpty());

    QString error;
    const auto backup =
        backups.keep(serialNumber, document, QStringLiteral("write hall.yaml"), error);
    QVERIFY2(backup, qPrintable(error));
    QCOMPARE(contentsOf(backup->path), "# before: write hall.yaml\n" + document);
    QCOMPARE(QDir(folder.unit).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList{QFileInfo(backup->path).fileName()});

    const Backup newest = backups.newest(serialNumber).value();
    QCOMPARE(newest.path, backup->path);
    QCOMPARE(newest.serialNumber, serialNumber);
    QCOMPARE(newest.number, 1);
    QCOMPARE(newest.change, QStringLiteral("write hall.yaml"));
}

void TestBackups::namesTheTime()
{
    const BackupFolder folder;
    const Backups backups(folder.path);
    QString error;
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const Backup backup = backups.keep(serialNumber, document, QString(), error).value();
    QCOMPARE(backup.path,
        folder.unit + QLatin1Char('/')
            + backup.time.toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z-1.yaml'")));
    QCOMPARE(backup.time.timeSpec(), Qt::UTC);
    QVERIFY(qAbs(before.secsTo(backup.time)) <= 60);

    const QDateTime read = backups.newest(serialNumber).value().time;
    QCOMPARE(read.timeSpec(), Qt::UTC);
    QCOMPARE(read.toSecsSinceEpoch(), backup.time.toSecsSinceEpoch());
}

void TestBackups::listsTheNewestFirst()
{
    const BackupFolder folder;
    const Backups backups(folder.path);
    QString error;
    for (int i = 1; i <= 11; ++i)
        QVERIFY(backups.keep(serialNumber, document, QString::number(i), error));
    const QList<Backup> list = backups.list(serialNumber);
    QCOMPARE(list.size(), 11);
    for (int i = 0; i < list.size(); ++i) {
        QCOMPARE(list.at(i).number, 11 - i);
        QCOMPARE(list.at(i).change, QString::number(11 - i));
    }
    QCOMPARE(backups.newest(serialNumber).value().number, 11);
}

void TestBackups::keepsTheLastFifty()
{
    const BackupFolder folder;
    const Backups backups(folder.path);
    QString error;
    for (int i = 1; i <= Backups::kept + 3; ++i)
        QVERIFY(backups.keep(serialNumber, document, QString(), error));
    const QList<Backup> list = backups.list(serialNumber);
    QCOMPARE(list.size(), 50);
    QCOMPARE(list.first().number, 53);
    QCOMPARE(list.last().number, 4);
}

void TestBackups::countsOnWhenTheClockGoesBack()
{
    const BackupFolder folder;
    QVERIFY(!folder.write(QStringLiteral("29991231T235959Z-7.yaml")).isEmpty());
    const Backups backups(folder.path);
    QString error;
    const Backup backup = backups.keep(serialNumber, document, QString(), error).value();
    QCOMPARE(backup.number, 8);
    QCOMPARE(backups.newest(serialNumber).value().path, backup.path);
}

void TestBackups::leavesOtherFilesAlone()
{
    const BackupFolder folder;
    QStringList others;
    for (const char* name : {"notes.txt", "20261121T093000Z-1.json", "20261121T093000Z-01.yaml",
             "20261121T093000Z-0.yaml", "20261399T093000Z-1.yaml", "20261121T093000Z-.yaml",
             "20261121T093000Z-1.yaml.Xy12ab", "20261121T093000Z-12345678901.yaml",
             "a20261121T093000Z-1.yaml"}) {
        others.append(folder.write(QString::fromLatin1(name)));
        QVERIFY(!others.last().isEmpty());
    }
    QVERIFY(QDir().mkpath(folder.unit + QStringLiteral("/20261121T093000Z-5.yaml")));
    const Backups backups(folder.path);
    QVERIFY(backups.list(serialNumber).isEmpty());
    QVERIFY(backups.serialNumbers().isEmpty());
    QString error;
    for (int i = 0; i <= Backups::kept; ++i)
        QVERIFY(backups.keep(serialNumber, document, QString(), error));
    for (const QString& other : others)
        QVERIFY2(QFile::exists(other), qPrintable(other));
}

void TestBackups::keepsUnitsApart()
{
    const BackupFolder folder;
    const Backups backups(folder.path);
    QString error;
    const quint64 largest = std::numeric_limits<quint64>::max();
    for (const quint64 unit : {largest, serialNumber, quint64(0)})
        QVERIFY(backups.keep(unit, document, QString::number(unit), error));
    QVERIFY(QDir().mkpath(folder.path + QStringLiteral("/hall")));
    QVERIFY(QDir().mkpath(folder.path + QStringLiteral("/7")));
    QCOMPARE(backups.serialNumbers(), (QList<quint64>{0, serialNumber, largest}));
    QCOMPARE(backups.list(largest).size(), 1);
    QCOMPARE(backups.list(largest).first().change, QStringLiteral("18446744073709551615"));
}

void TestBackups::showsOneLine_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("shown");
    QTest::newRow("Chinese") << QStringLiteral("写 大厅.yaml") << QStringLiteral("写 大厅.yaml");
    QTest::newRow("lines") << QStringLiteral("set a\nevents: []\r\n") << "set a events: []";
    QTest::newRow("escape") << QStringLiteral("\x1b[31mset") << "[31mset";
    QTest::newRow("long") << QString(500, QLatin1Char('x')) << QString(200, QLatin1Char('x'));
    QTest::newRow("none") << QString() << QString();
}

void TestBackups::showsOneLine()
{
    QFETCH(QString, change);
    QFETCH(QString, shown);
    const BackupFolder folder;
    const Backups backups(folder.path);
    QString error;
    const Backup backup = backups.keep(serialNumber, document, change, error).value();
    QCOMPARE(backup.change, shown);
    QCOMPARE(contentsOf(backup.path), "# before: " + shown.toUtf8() + '\n' + document);
    QCOMPARE(backups.newest(serialNumber).value().change, shown);
}

void TestBackups::readsAChangeOfAnyone_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("change");
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("no comment") << document << QString();
    QTest::newRow("another comment") << QByteArray("# hall\n") << QString();
    QTest::newRow("no end") << QByteArray("# before: set") << "set";
    QTest::newRow("escape") << QByteArray("# before: \x1b[31mset\n") << "[31mset";
    QTest::newRow("one long line")
        << QByteArray("# before: ") + QByteArray(100000, 'x') << QString(200, QLatin1Char('x'));
}

void TestBackups::readsAChangeOfAnyone()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, change);
    const BackupFolder folder;
    QVERIFY(!folder.write(QStringLiteral("20261121T093000Z-1.yaml"), text).isEmpty());
    QCOMPARE(Backups(folder.path).newest(serialNumber).value().change, change);
}

void TestBackups::hidesWhatItKeeps()
{
    const BackupFolder folder;
    QString error;
    QVERIFY(Backups(folder.path).keep(serialNumber, document, QString(), error));
    for (const QString& made : {folder.path, folder.unit}) {
        struct stat status = {};
        QCOMPARE(stat(QFile::encodeName(made).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777, 0700u);
    }
}

void TestBackups::tellsAFailure_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<QString>("reason");
    QTest::newRow("a file among the parents") << "state"
                                              << "%1/state/backups/310000001: Not a directory";
    QTest::newRow("a file for the folder") << "state/backups"
                                           << "%1/state/backups/310000001: Not a directory";
}

void TestBackups::tellsAFailure()
{
    QFETCH(QString, obstacle);
    QFETCH(QString, reason);
    const BackupFolder folder;
    const QString path = folder.parent.filePath(obstacle);
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QString error;
    QVERIFY(!Backups(folder.path).keep(serialNumber, document, QString(), error));
    QCOMPARE(error, reason.arg(folder.parent.path()));
}

QTEST_GUILESS_MAIN(TestBackups)
#include "tst_backups.moc"
