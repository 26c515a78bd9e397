// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cstddef>
#include <cstdint>

using FuzzTarget = int (*)(const std::uint8_t* data, std::size_t size);

#define FUZZ_TARGET(name) extern "C" int fuzz_##name(const std::uint8_t* data, std::size_t size);
#include "fuzztargets.inc"
#undef FUZZ_TARGET

namespace {

struct NamedTarget {
    const char* name;
    FuzzTarget run;
};

const NamedTarget targets[] = {
#define FUZZ_TARGET(name) {#name, fuzz_##name},
#include "fuzztargets.inc"
#undef FUZZ_TARGET
};

} // namespace

Q_DECLARE_METATYPE(FuzzTarget)

/** Runs the known inputs of each fuzz target, of which each ends the program if it is a finding. */
class TestFuzzCorpus : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void known_data();
    void known();

private:
    const QTemporaryDir m_seeds;
};

void TestFuzzCorpus::initTestCase()
{
    QVERIFY(m_seeds.isValid());
    QCOMPARE(QProcess::execute(QStringLiteral(FUZZ_SEEDS_PATH), {m_seeds.path()}), 0);
}

void TestFuzzCorpus::known_data()
{
    QTest::addColumn<FuzzTarget>("target");
    QTest::addColumn<QString>("path");
    for (const NamedTarget& target : targets) {
        const QString name = QString::fromLatin1(target.name);
        QTest::addRow("%s nothing", target.name) << target.run << QString();
        int inputs = 0;
        for (const QDir& folder :
            {QDir(QStringLiteral(CORPUS_DIR "/") + name), QDir(m_seeds.filePath(name))}) {
            for (const QFileInfo& input : folder.entryInfoList(QDir::Files, QDir::Name)) {
                QTest::addRow("%s %s", target.name, qPrintable(input.fileName()))
                    << target.run << input.filePath();
                ++inputs;
            }
        }
        QVERIFY2(inputs > 0, qPrintable(name + QStringLiteral(" has no known input")));
    }
}

void TestFuzzCorpus::known()
{
    QFETCH(FuzzTarget, target);
    QFETCH(QString, path);
    QByteArray input;
    if (!path.isEmpty()) {
        QFile file(path);
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.errorString()));
        input = file.readAll();
    }
    target(reinterpret_cast<const std::uint8_t*>(input.constData()),
        static_cast<std::size_t>(input.size()));
}

// A fuzz target makes the application itself if it needs one.
QTEST_APPLESS_MAIN(TestFuzzCorpus)

#include "tst_fuzzcorpus.moc"
