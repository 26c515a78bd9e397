// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "framelog.h"
#include "threadedunit.h"
#include "unitframe.h"
#include "unitsession.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace QuadrelUnit;

namespace {

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** The lines without their times, whose form is tested on the way. */
QStringList linesOf(const QString& path)
{
    static const QRegularExpression time(
        QStringLiteral("^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}Z "));
    static const QRegularExpression duration(QStringLiteral(" \\d+\\.\\d{3} ms$"));
    QStringList lines =
        QString::fromUtf8(contentsOf(path)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (QString& line : lines) {
        if (!time.match(line).hasMatch())
            return {QStringLiteral("no time: ") + line};
        line.remove(time).replace(duration, QStringLiteral(" N ms"));
    }
    return lines;
}

} // namespace

class TestFrameLog : public QObject {
    Q_OBJECT

private slots:
    void init();
    void writesFrames_data();
    void writesFrames();
    void followsASession();
    void showsWhatIsSentAgainAndDropped();
    void rotates();
    void appends();
    void saysWhyAFileCanNotBeOpened();
    void noticesWhatItCanNotWrite();

private:
    QTemporaryDir m_folder;
    QString m_path;
};

void TestFrameLog::init()
{
    static int number = 0;
    m_path = m_folder.filePath(QStringLiteral("log%1").arg(++number));
}

void TestFrameLog::writesFrames_data()
{
    QTest::addColumn<QByteArray>("frame");
    QTest::addColumn<QString>("line");
    const UnitFrame read = UnitFrame::readRequest(17, 0xF0020201, 512);
    const UnitFrame write = UnitFrame::writeRequest(254, 0x12345678, "AZ");
    QTest::newRow("read") << read.encode() << "17 read 0xF0020201 (event 2) 512";
    QTest::newRow("its reply") << UnitFrame::replyTo(read, QByteArray::fromHex("00ff")).encode()
                               << "17 read 0xF0020201 (event 2) 2 00ff";
    QTest::newRow("write") << write.encode() << "254 write 0x12345678 2 415a";
    QTest::newRow("its reply, too")
        << UnitFrame::replyTo(write).encode() << "254 write 0x12345678 0";
}

void TestFrameLog::writesFrames()
{
    QFETCH(QByteArray, frame);
    QFETCH(QString, line);
    QString error;
    const auto log = FrameLog::toFile(m_path, error);
    log->add(QStringLiteral("tcp://unit:1"), FrameLog::Sent, frame);
    log->add(
        QStringLiteral("tcp://unit:1"), FrameLog::Received, frame, std::chrono::microseconds(1874));
    QVERIFY(contentsOf(m_path).endsWith(" 1.874 ms\n"));
    QCOMPARE(linesOf(m_path),
        QStringList({QStringLiteral("tcp://unit:1 > ") + line,
            QStringLiteral("tcp://unit:1 < ") + line + QStringLiteral(" N ms")}));
    QVERIFY(!log->hasFailed());
}

void TestFrameLog::followsASession()
{
    const ThreadedUnit unit;
    LinkOptions options;
    QString error;
    options.log = FrameLog::toFile(m_path, error);
    UnitSession session(unit.address(), options);
    QVERIFY(session.run(UnitRequest::writeRemark("A")));
    const QString place =
        unit.address().toText() + QStringLiteral(" %1 0 write 0x18201000 (remark) ");
    QCOMPARE(linesOf(m_path),
        QStringList({place.arg(QLatin1Char('>')) + QStringLiteral("90 41")
                + QStringLiteral("00").repeated(89),
            place.arg(QLatin1Char('<')) + QStringLiteral("0 N ms")}));
}

void TestFrameLog::showsWhatIsSentAgainAndDropped()
{
    ThreadedUnit unit;
    unit.at([](ControlUnit&, UnitServer& server) {
        server.faults().addNth(FaultKind::Drop, 1);
        server.faults().addNth(FaultKind::WrongLabel, 2);
    });
    LinkOptions options;
    options.timeout = 50;
    QString error;
    options.log = FrameLog::toFile(m_path, error);
    UnitSession session(unit.address(UnitAddress::Udp), options);
    QVERIFY(session.run(UnitRequest::readClock()));
    QString directions;
    for (const QString& line : linesOf(m_path))
        directions += line.section(QLatin1Char(' '), 1, 1);
    QCOMPARE(directions, QStringLiteral(">>->") + QLatin1Char('<'));
}

void TestFrameLog::rotates()
{
    QString error;
    const auto log = FrameLog::toFile(m_path, error, 1000, 2);
    const QByteArray frame = UnitFrame::readRequest(1, 0xF0020001, 512).encode();
    for (int i = 0; i < 100; ++i)
        log->add(QString::number(i), FrameLog::Sent, frame);
    for (const char* end : {"", ".1", ".2"}) {
        const qint64 size = QFile(m_path + QLatin1String(end)).size();
        QVERIFY2(size > 0 && size <= 1000, end);
    }
    QVERIFY(!QFile::exists(m_path + QStringLiteral(".3")));
    QVERIFY(linesOf(m_path).last().startsWith(QStringLiteral("99 ")));
    const QStringList older = linesOf(m_path + QStringLiteral(".1"));
    const int next = linesOf(m_path).first().section(QLatin1Char(' '), 0, 0).toInt();
    QCOMPARE(older.last().section(QLatin1Char(' '), 0, 0).toInt(), next - 1);
}

void TestFrameLog::appends()
{
    QString error;
    const QByteArray frame = UnitFrame::readRequest(1, 0xF0020001, 512).encode();
    for (int i = 0; i < 2; ++i)
        FrameLog::toFile(m_path, error)->add(QStringLiteral("unit"), FrameLog::Sent, frame);
    QCOMPARE(linesOf(m_path).size(), 2);
}

void TestFrameLog::saysWhyAFileCanNotBeOpened()
{
    QString error;
    QVERIFY(!FrameLog::toFile(m_folder.filePath(QStringLiteral("none/log")), error));
    QCOMPARE(error, QStringLiteral("No such file or directory"));
}

void TestFrameLog::noticesWhatItCanNotWrite()
{
    QString error;
    const auto log = FrameLog::toFile(QStringLiteral("/dev/full"), error);
    if (!log)
        QSKIP("this machine has no /dev/full");
    QVERIFY(!log->hasFailed());
    log->add(QStringLiteral("unit"), FrameLog::Sent, UnitFrame::readRequest(1, 2, 3).encode());
    QVERIFY(log->hasFailed());
}

QTEST_GUILESS_MAIN(TestFrameLog)
#include "tst_framelog.moc"
