// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

namespace {

const QString source = QStringLiteral(SOURCE_DIR);

QString contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/** A page without its code. */
QString textOf(const QString& path)
{
    static const QRegularExpression code(QStringLiteral("^```.*?^```"),
        QRegularExpression::MultilineOption | QRegularExpression::DotMatchesEverythingOption);
    return contentsOf(path).remove(code);
}

QStringList pages()
{
    return QDir(source + QStringLiteral("/docs")).entryList({QStringLiteral("*.md")});
}

/** What the files of each class hold, by its name in lower case. */
QMap<QString, QString> sourcesByClass()
{
    QMap<QString, QString> sources;
    QDirIterator files(source + QStringLiteral("/src"),
        {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files,
        QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        sources[QFileInfo(path).baseName()] += contentsOf(path);
    }
    return sources;
}

} // namespace

/** The guide says what the tree holds. */
class TestGuide : public QObject {
    Q_OBJECT

private slots:
    void showsTheExample_data();
    void showsTheExample();
    void linksToWhatIsThere_data();
    void linksToWhatIsThere();
    void isReachable();
    void saysWhatItIsFor_data();
    void saysWhatItIsFor();
    void namesWhatIsThere();
    void showsDrawnDiagrams_data();
    void showsDrawnDiagrams();
};

void TestGuide::showsTheExample_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name :
        {"CMakeLists.txt", "read.cpp", "write.cpp", "discover.cpp", "upgrade.cpp"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestGuide::showsTheExample()
{
    QFETCH(QString, name);
    QString code = contentsOf(source + QStringLiteral("/examples/") + name);
    // The lines of the licence, and an empty one.
    code.remove(QRegularExpression(QStringLiteral("\\A(\\S+ SPDX-.*\n)+\n")));
    QVERIFY(!code.isEmpty());
    const QString page = contentsOf(source + QStringLiteral("/docs/link.md"));
    const QString language =
        name.endsWith(QLatin1String(".txt")) ? QStringLiteral("cmake") : QStringLiteral("cpp");
    QVERIFY2(page.contains(QStringLiteral("```%1\n").arg(language) + code + QStringLiteral("```")),
        qPrintable(name));
}

void TestGuide::linksToWhatIsThere_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : pages())
        QTest::newRow(qPrintable(name)) << QStringLiteral("docs/") + name;
    for (const char* name : {"README.md", "CONTRIBUTING.md", "SECURITY.md", "CODE_OF_CONDUCT.md"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestGuide::linksToWhatIsThere()
{
    QFETCH(QString, name);
    const QFileInfo page(source + QLatin1Char('/') + name);
    static const QRegularExpression link(QStringLiteral("\\]\\(([^):]+)\\)"));
    auto matches = link.globalMatch(textOf(page.filePath()));
    QVERIFY(matches.hasNext() || name != QLatin1String("README.md"));
    while (matches.hasNext()) {
        const QString target = matches.next().captured(1);
        QVERIFY2(page.dir().exists(target), qPrintable(target));
    }
}

/** Every page is in the index. */
void TestGuide::isReachable()
{
    const QString index = contentsOf(source + QStringLiteral("/docs/index.md"));
    for (const QString& name : pages()) {
        if (name == QLatin1String("index.md"))
            continue;
        QVERIFY2(index.contains(QLatin1Char('(') + name + QLatin1Char(')')), qPrintable(name));
    }
}

void TestGuide::saysWhatItIsFor_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : pages())
        QTest::newRow(qPrintable(name)) << name;
}

/** Before its first section a page says what its reader can do after it. */
void TestGuide::saysWhatItIsFor()
{
    QFETCH(QString, name);
    const QString text = textOf(source + QStringLiteral("/docs/") + name);
    const QString opening = text.section(QStringLiteral("\n## "), 0, 0);
    QVERIFY(
        opening.contains(QRegularExpression(QStringLiteral("\\bafter\\s+this\\s+page\\s+you\\b"),
            QRegularExpression::CaseInsensitiveOption)));
}

/** Each Class::name of the architecture page is in the files of that class. */
void TestGuide::namesWhatIsThere()
{
    const QMap<QString, QString> sources = sourcesByClass();
    const QString page = contentsOf(source + QStringLiteral("/docs/architecture.md"));
    static const QRegularExpression member(QStringLiteral("`(\\w+)::(\\w+)`"));
    auto matches = member.globalMatch(page);
    QVERIFY(matches.hasNext());
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const QRegularExpression name(QStringLiteral("\\b%1\\b").arg(match.captured(2)));
        // A namespace has no file of its own name.
        const QString code = match.captured(1) == QLatin1String("QuadrelDocument")
            ? sources.value(QStringLiteral("unitcontents"))
            : sources.value(match.captured(1).toLower());
        QVERIFY2(code.contains(name), qPrintable(match.captured()));
    }
}

void TestGuide::showsDrawnDiagrams_data()
{
    QTest::addColumn<QString>("name");
    const QDir folder(source + QStringLiteral("/docs/diagrams"));
    for (const QString& name :
        folder.entryList({QStringLiteral("*.dot"), QStringLiteral("*.puml")}))
        QTest::newRow(qPrintable(name)) << name;
}

/** scripts/diagrams has drawn what the source says now. */
void TestGuide::showsDrawnDiagrams()
{
    QFETCH(QString, name);
    const QString path = source + QStringLiteral("/docs/diagrams/") + name;
    const QByteArray checksum =
        QCryptographicHash::hash(contentsOf(path).toUtf8(), QCryptographicHash::Sha256).toHex();
    const QString picture =
        contentsOf(path.section(QLatin1Char('.'), 0, -2) + QStringLiteral(".svg"));
    const QString end = QStringLiteral("<!-- %1 %2 -->\n").arg(name, QString::fromLatin1(checksum));
    QVERIFY2(picture.endsWith(end), "draw it again with scripts/diagrams");
}

QTEST_APPLESS_MAIN(TestGuide)
#include "tst_guide.moc"
