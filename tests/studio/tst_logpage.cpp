// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "controls.h"
#include "failonwarnings.h"
#include "replyframes.h"

#include "logpage/logpage.h"

#include <QtCore/QTemporaryDir>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QScrollBar>

class TestLogPage : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void readsWholeLines();
    void readsOnOverARotation();
    void leavesOutWhatIsTooMuch();
    void showsFramesAsTheyCome();
    void showsALogThatBeginsLater();
    void showsTheLinesThatAreAskedFor();
    void staysWhereTheReaderIs();
    void readsNothingWhileItIsHidden();
    void savesAllFiles();
    void reportsWhatCantBeSaved_data();
    void reportsWhatCantBeSaved();
    void hasNames();

private:
    void write(const QByteArray& text) const;
    QStringList shown(const LogPage& page) const
    {
        return controlNamed<QPlainTextEdit>(page, QStringLiteral("Frames"))
            ->toPlainText()
            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

void TestLogPage::initTestCase()
{
    failOnWarnings();
}

void TestLogPage::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(QStringLiteral("frames.log"));
}

void TestLogPage::write(const QByteArray& text) const
{
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::Append));
    QCOMPARE(file.write(text), qint64(text.size()));
}

void TestLogPage::readsWholeLines()
{
    LogFiles files(m_path);
    QCOMPARE(files.readNew(), QStringList());
    write("one\ntwo\nthr");
    QCOMPARE(files.readNew(), QStringList({"one", "two"}));
    QCOMPARE(files.readNew(), QStringList());
    write("ee\n");
    QCOMPARE(files.readNew(), QStringList({"three"}));
}

void TestLogPage::readsOnOverARotation()
{
    LogFiles files(m_path);
    write("one\ntwo\n");
    QCOMPARE(files.readNew().size(), 2);
    write("three\n");
    QVERIFY(QFile::rename(m_path, m_path + QStringLiteral(".1")));
    write("four\n");
    QCOMPARE(files.readNew(), QStringList({"three", "four"}));
    QVERIFY(!files.hasSkipped());
}

void TestLogPage::leavesOutWhatIsTooMuch()
{
    LogFiles files(m_path);
    write(QByteArray("0123456789abcde\n").repeated(LogFiles::mostBytes / 8));
    write("last\n");
    const QStringList lines = files.readNew();
    QVERIFY(files.hasSkipped());
    QCOMPARE(lines.last(), QStringLiteral("last"));
    QCOMPARE(lines.first(), QStringLiteral("0123456789abcde"));
    QVERIFY(lines.size() <= LogFiles::mostBytes / 16 + 1);
    write("more\n");
    QCOMPARE(files.readNew(), QStringList({"more"}));
    QVERIFY(!files.hasSkipped());
}

void TestLogPage::showsFramesAsTheyCome()
{
    QString error;
    const auto log = FrameLog::toFile(m_path, error, 1000, 3);
    QVERIFY2(log, qPrintable(error));
    LogPage page(m_path, log);
    QVERIFY(showActive(page));
    QCOMPARE(shown(page), QStringList());
    const QByteArray frame = replyFrame(0xF0020000, QByteArray(1, '\x20'));
    log->add(QStringLiteral("tcp://10.0.0.7:3801"), FrameLog::Received, frame);
    QTRY_COMPARE(shown(page).size(), 1);
    QVERIFY(shown(page).first().contains(QLatin1String("(event count)")));
    // Over several files, each line comes once.
    for (int i = 1; i < 25; ++i) {
        log->add(QStringLiteral("tcp://10.0.0.%1:3801").arg(i), FrameLog::Received, frame);
        QTRY_COMPARE(shown(page).size(), i + 1);
    }
    QVERIFY(QFile::exists(m_path + QStringLiteral(".1")));
    QVERIFY(shown(page).last().contains(QLatin1String("10.0.0.24")));
}

void TestLogPage::showsALogThatBeginsLater()
{
    LogPage page(m_path, nullptr);
    QVERIFY(showActive(page));
    write("one\n");
    QTRY_COMPARE(shown(page), QStringList({"one"}));
}

void TestLogPage::showsTheLinesThatAreAskedFor()
{
    write("tcp://10.0.0.7 read\ntcp://10.0.0.8 write\ntcp://10.0.0.7 write\n");
    LogPage page(m_path, nullptr);
    QVERIFY(showActive(page));
    QCOMPARE(shown(page).size(), 3);
    auto* filter = controlNamed<QLineEdit>(page, QStringLiteral("Show only lines with this text"));
    QTest::keyClicks(filter, QStringLiteral("WRITE"));
    QCOMPARE(shown(page), QStringList({"tcp://10.0.0.8 write", "tcp://10.0.0.7 write"}));
    write("tcp://10.0.0.9 read\ntcp://10.0.0.9 write\n");
    QTRY_COMPARE(shown(page).size(), 3);
    filter->clear();
    QCOMPARE(shown(page).size(), 5);
}

void TestLogPage::staysWhereTheReaderIs()
{
    write(QByteArray("line\n").repeated(500));
    LogPage page(m_path, nullptr);
    QVERIFY(showActive(page));
    auto* view = controlNamed<QPlainTextEdit>(page, QStringLiteral("Frames"));
    QScrollBar* bar = view->verticalScrollBar();
    QCOMPARE(bar->value(), bar->maximum());
    controlNamed<QCheckBox>(page, QStringLiteral("Follow the newest line"))->click();
    bar->setValue(10);
    write("more\n");
    QTRY_COMPARE(shown(page).size(), 501);
    QCOMPARE(bar->value(), 10);
}

void TestLogPage::readsNothingWhileItIsHidden()
{
    LogPage page(m_path, nullptr);
    QVERIFY(showActive(page));
    page.hide();
    write("one\n");
    // Longer than a burst; nothing must come of it.
    QTest::qWait(300);
    QCOMPARE(shown(page), QStringList());
    page.show();
    QCOMPARE(shown(page), QStringList({"one"}));
}

void TestLogPage::savesAllFiles()
{
    write("one\n");
    QVERIFY(QFile::rename(m_path, m_path + QStringLiteral(".2")));
    write("two\n");
    QVERIFY(QFile::rename(m_path, m_path + QStringLiteral(".1")));
    write("three\n");
    const LogPage page(m_path, nullptr);
    const QString target = m_folder->filePath(QStringLiteral("support.log"));
    QString error;
    QVERIFY2(page.save(target, error), qPrintable(error));
    QFile file(target);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("one\ntwo\nthree\n"));
}

void TestLogPage::reportsWhatCantBeSaved_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("why");
    QTest::newRow("no folder") << "nowhere/support.log"
                               << "No such file or directory";
    QTest::newRow("the log itself") << "frames.log"
                                    << "this is the log itself; choose another name.";
}

void TestLogPage::reportsWhatCantBeSaved()
{
    QFETCH(QString, name);
    QFETCH(QString, why);
    write("one\n");
    const LogPage page(m_path, nullptr);
    const QString target = m_folder->filePath(name);
    QString error;
    QVERIFY(!page.save(target, error));
    QCOMPARE(error, QStringLiteral("%1: %2").arg(target, why));
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("one\n"));
}

void TestLogPage::hasNames()
{
    QCOMPARE(controlsWithoutName(LogPage(m_path, nullptr)), QStringList());
}

QTEST_MAIN(TestLogPage)
#include "tst_logpage.moc"
