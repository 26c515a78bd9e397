// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "imagechecks.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <sys/stat.h>

using namespace QuadrelWorkspace;

namespace {

QString write(const QTemporaryDir& folder, const QByteArray& bytes)
{
    QFile file(folder.filePath(QStringLiteral("file")));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName()
                                                                                : QString();
}

} // namespace

class TestImageChecks : public QObject {
    Q_OBJECT

private slots:
    void readsAnImage();
    void refusesWhatIsNoFile_data();
    void refusesWhatIsNoFile();
    void doubtsAnImage_data();
    void doubtsAnImage();
    void readsADescriptor_data();
    void readsADescriptor();
    void refusesADescriptor_data();
    void refusesADescriptor();
    void doubtsADescriptor_data();
    void doubtsADescriptor();
    void comparesTheVersion_data();
    void comparesTheVersion();
};

void TestImageChecks::readsAnImage()
{
    const QTemporaryDir folder;
    QByteArray image(100000, '\0');
    image[5] = '\xff';
    QString error;
    QCOMPARE(readImage(write(folder, image), error).value(), image);
    QCOMPARE(readImage(write(folder, QByteArray()), error).value(), QByteArray());
    QCOMPARE(error, QString());
}

void TestImageChecks::refusesWhatIsNoFile_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("imageError");
    QTest::addColumn<QString>("descriptorError");
    QTest::newRow("missing") << "missing"
                             << "%1: No such file or directory"
                             << "%1: 打开文件失败！";
    QTest::newRow("folder") << "folder"
                            << "%1: not a regular file"
                            << "%1: not a regular file";
    QTest::newRow("pipe without a writer") << "pipe"
                                           << "%1: not a regular file"
                                           << "%1: not a regular file";
    QTest::newRow("too large") << "large"
                               << "%1: the file is larger than 256 MB"
                               << "%1: the file is larger than 1 MB";
}

void TestImageChecks::refusesWhatIsNoFile()
{
    QFETCH(QString, kind);
    QFETCH(QString, imageError);
    QFETCH(QString, descriptorError);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("file"));
    if (kind == QStringLiteral("folder"))
        QVERIFY(QDir().mkpath(path));
    else if (kind == QStringLiteral("pipe"))
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    else if (kind == QStringLiteral("large"))
        QVERIFY(QFile(write(folder, QByteArray())).resize(maximalImageSize + 1));

    QString error;
    QVERIFY(!readImage(path, error));
    QCOMPARE(error, imageError.arg(path));
    QVERIFY(!readDescriptor(path, error));
    QCOMPARE(error, descriptorError.arg(path));
}

void TestImageChecks::doubtsAnImage_data()
{
    QTest::addColumn<QByteArray>("image");
    QTest::addColumn<QString>("doubt");
    const QString empty = QStringLiteral("F: the file is empty, and not an image");
    const QString xml = QStringLiteral("F: this is XML, and not an image");
    const QString text = QStringLiteral("F: this is text, and not an image");
    const QString none;
    QTest::newRow("image") << QByteArray::fromHex("00207009fe00ff7f") << none;
    QTest::newRow("zeros") << QByteArray(100, '\0') << none;
    QTest::newRow("erased flash") << QByteArray(100, '\xff') << none;
    QTest::newRow("text with a zero in it") << QByteArray("boot\0loader", 11) << none;
    QTest::newRow("text, then an image") << QByteArray("BOOT\x01\x02\x03\x04") << none;
    QTest::newRow("empty") << QByteArray() << empty;
    QTest::newRow("XML") << QByteArray("<?xml version='1.0'?><a/>") << xml;
    QTest::newRow("XML without its line") << QByteArray("\n  <Update/>") << xml;
    QTest::newRow("XML with a comment first") << QByteArray("<!-- a --><a/>") << xml;
    QTest::newRow("XML with a byte order mark") << QByteArray("\xef\xbb\xbf<Update/>") << xml;
    QTest::newRow("XML in UTF-16") << QByteArray("\xff\xfe<\0a\0/\0>\0", 10) << xml;
    QTest::newRow("less than") << QByteArray("< 5") << text;
    QTest::newRow("text") << QByteArray("release notes\r\n\t1.0\n") << text;
    QTest::newRow("Intel hex") << QByteArray(":10010000214601360121470136007EFE09D2190140\n")
                               << text;
    QTest::newRow("Chinese") << QStringLiteral("说明").toUtf8() << text;
    QTest::newRow("beyond the plane") << QStringLiteral("\U0001F600").toUtf8() << text;
    QTest::newRow("a character cut at the end of what is looked at")
        << QByteArray(64 * 1024 - 1, 'a') + QStringLiteral("说明").toUtf8() << text;
}

void TestImageChecks::doubtsAnImage()
{
    QFETCH(QByteArray, image);
    QTEST(imageDoubt(QStringLiteral("F"), image), "doubt");
}

void TestImageChecks::readsADescriptor_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("module");
    QTest::addColumn<QString>("version");
    QTest::newRow("both") << QByteArray(
        "<Update><ModuleID> 29193\n</ModuleID><Version>1.2.3</Version></Update>")
                          << "29193"
                          << "1.2.3";
    QTest::newRow("neither") << QByteArray("<Update><a/></Update>") << ""
                             << "";
    QTest::newRow("not for a terminal")
        << QByteArray("<Update><ModuleID>a\n&#x9b;b</ModuleID><Version/></Update>") << "a b"
        << "";
}

void TestImageChecks::readsADescriptor()
{
    QFETCH(QByteArray, xml);
    const QTemporaryDir folder;
    const QString path = write(folder, xml);
    QString error;
    const auto descriptor = readDescriptor(path, error);
    QVERIFY2(descriptor, qPrintable(error));
    QCOMPARE(descriptor->path, path);
    QTEST(descriptor->module, "module");
    QTEST(descriptor->version, "version");
}

void TestImageChecks::refusesADescriptor_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << "unexpected end of file";
    QTest::newRow("image") << QByteArray("\x01\x02\x03") << "error occurred while parsing element";
    QTest::newRow("nothing in it") << QByteArray("<Update/>") << "the descriptor is empty";
}

void TestImageChecks::refusesADescriptor()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    const QString path = write(folder, xml);
    QString error;
    QVERIFY(!readDescriptor(path, error));
    QCOMPARE(error, QStringLiteral("%1: %2").arg(path, reason));
}

void TestImageChecks::doubtsADescriptor_data()
{
    QTest::addColumn<QString>("module");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QStringList>("doubts");
    const QString noModule =
        QStringLiteral("F: the descriptor names no module; the unit is of model 0x7209");
    const auto otherModule = [](const QString& module) {
        return QStringLiteral("F: the descriptor is for module %1, and the unit is of model 0x7209")
            .arg(module);
    };
    const QString noVersion =
        QStringLiteral("F: the descriptor names no version; the unit has 1.2.0.0");
    const QString installed = QStringLiteral("F: version 1.2.0.0 is the one that the unit has");
    QTest::newRow("decimal") << "29193"
                             << "1.2.0.1" << QStringList();
    QTest::newRow("hexadecimal") << "0x7209"
                                 << "1.2.0.1" << QStringList();
    QTest::newRow("hexadecimal without 0x") << "7209"
                                            << "1.2.0.1" << QStringList();
    QTest::newRow("an older version") << "7209"
                                      << "1.1.9.9" << QStringList();
    QTest::newRow("no module") << ""
                               << "1.2.0.1" << QStringList{noModule};
    QTest::newRow("another model")
        << "0x7210"
        << "1.2.0.1" << QStringList{otherModule(QStringLiteral("0x7210"))};
    QTest::newRow("more than 16 bits")
        << "0x17209"
        << "1.2.0.1" << QStringList{otherModule(QStringLiteral("0x17209"))};
    QTest::newRow("no number") << "Main board"
                               << "1.2.0.1"
                               << QStringList{otherModule(QStringLiteral("Main board"))};
    QTest::newRow("no version") << "7209"
                                << "" << QStringList{noVersion};
    QTest::newRow("installed") << "7209"
                               << "1.2.0.0" << QStringList{installed};
    QTest::newRow("installed, in short") << "7209"
                                         << "1.2" << QStringList{installed};
    QTest::newRow("installed, with a V") << "7209"
                                         << "v1.02.0" << QStringList{installed};
    QTest::newRow("longer") << "7209"
                            << "1.2.0.0.1" << QStringList();
    QTest::newRow("no version number") << "7209"
                                       << "1.2.0.0-rc" << QStringList();
    QTest::newRow("all") << ""
                         << "" << QStringList{noModule, noVersion};
}

void TestImageChecks::doubtsADescriptor()
{
    QFETCH(QString, module);
    QFETCH(QString, version);
    const UpgradeDescriptor descriptor{QStringLiteral("F"), module, version};
    QTEST(descriptorDoubts(descriptor, 0x7209, QStringLiteral("1.2.0.0")), "doubts");
}

void TestImageChecks::comparesTheVersion_data()
{
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("fault");
    const QString unchanged = QStringLiteral("the unit came back unchanged, with version 1.0.0.0");
    QTest::newRow("as it says") << "1.0.0.1"
                                << "1.0.0.1"
                                << "";
    QTest::newRow("as it says, in short") << "V1.1"
                                          << "1.1.0.0"
                                          << "";
    QTest::newRow("unchanged") << "1.0.0.1"
                               << "1.0.0.0" << unchanged;
    QTest::newRow("the same again") << "1.0.0.0"
                                    << "1.0.0.0"
                                    << "";
    QTest::newRow("another one") << "1.0.0.1"
                                 << "1.0.0.2"
                                 << "the unit came back with version 1.0.0.2, and F says 1.0.0.1";
    QTest::newRow("says nothing") << ""
                                  << "1.0.0.1"
                                  << "";
    QTest::newRow("says nothing, and unchanged") << ""
                                                 << "1.0.0.0" << unchanged;
}

void TestImageChecks::comparesTheVersion()
{
    QFETCH(QString, expected);
    QFETCH(QString, after);
    const QString before = QStringLiteral("1.0.0.0");
    const UpgradeDescriptor descriptor{QStringLiteral("F"), QStringLiteral("7209"), expected};
    QTEST(versionFault(descriptor, before, after), "fault");
    if (expected.isEmpty())
        QTEST(versionFault(std::nullopt, before, after), "fault");
}

QTEST_GUILESS_MAIN(TestImageChecks)
#include "tst_imagechecks.moc"
