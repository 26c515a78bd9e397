// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "projectdocument.h"
#include "samplecontents.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace QuadrelDocument;

namespace {

/** What is kept in the tree, and was written by a little-endian processor of 64 bits. */
QString kept(const QString& name)
{
    return QStringLiteral(SOURCE_DIR "/tests/document/portable/") + name;
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** From the third line on: the order of the attributes in the second varies from run to run. */
QByteArray withoutHead(const QByteArray& bytes)
{
    return bytes.mid(bytes.indexOf('\n', bytes.indexOf('\n') + 1));
}

} // namespace

/**
 * Files are the same, byte for byte, whatever processor writes them: so each reads what any other
 * has written.
 */
class TestPortableFiles : public QObject {
    Q_OBJECT

private slots:
    void everyProcessorWritesTheseBytes_data();
    void everyProcessorWritesTheseBytes();
    void everyProcessorReadsThem_data();
    void everyProcessorReadsThem();
};

void TestPortableFiles::everyProcessorWritesTheseBytes_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("YAML") << QStringLiteral("sample.yaml");
    QTest::newRow("JSON") << QStringLiteral("sample.json");
    QTest::newRow("project") << QStringLiteral("sample.xml");
}

void TestPortableFiles::everyProcessorWritesTheseBytes()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    QCOMPARE(saveFile(path, sampleContents()), QString());
    QVERIFY(bytesOf(path).size() > 9000);
    QCOMPARE(withoutHead(bytesOf(path)), withoutHead(bytesOf(kept(name))));
}

void TestPortableFiles::everyProcessorReadsThem_data()
{
    everyProcessorWritesTheseBytes_data();
}

void TestPortableFiles::everyProcessorReadsThem()
{
    QFETCH(QString, name);
    const LoadedFile loaded = loadFile(kept(name));
    QVERIFY2(!hasErrors(loaded.findings), qPrintable(messagesOf(loaded.findings)));
    QVERIFY(loaded.contents.events && loaded.contents.triggers);

    const QTemporaryDir folder;
    const QString path = folder.filePath(name);
    QCOMPARE(saveFile(path, sampleContents()), QString());
    const Contents own = loadFile(path).contents;
    QCOMPARE(loaded.contents.events, own.events);
    QCOMPARE(loaded.contents.triggers, own.triggers);
    QCOMPARE(loaded.contents.timeTriggers, own.timeTriggers);
}

QTEST_GUILESS_MAIN(TestPortableFiles)

#include "tst_portablefiles.moc"
