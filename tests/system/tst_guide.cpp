// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtCore/QDir>
#include <QtCore/QFile>
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
        QTest::newRow(qPrintable(name)) << name;
}

void TestGuide::linksToWhatIsThere()
{
    QFETCH(QString, name);
    const QDir folder(source + QStringLiteral("/docs"));
    static const QRegularExpression link(QStringLiteral("\\]\\(([^):]+)\\)"));
    auto matches = link.globalMatch(textOf(folder.filePath(name)));
    while (matches.hasNext()) {
        const QString target = matches.next().captured(1);
        QVERIFY2(folder.exists(target), qPrintable(target));
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

QTEST_APPLESS_MAIN(TestGuide)
#include "tst_guide.moc"
