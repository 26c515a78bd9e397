// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "programs.h"

#include <QtCore/QDir>
#include <QtTest/QtTest>

namespace {

const QString unitOption = QStringLiteral("--unit");

/** A shell script in place of an editor; "$1" is the file. */
void setEditor(ControlTool& tool, const QByteArray& script)
{
    const QString path = tool.write(QStringLiteral("editor"), "#!/bin/sh\n" + script);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    tool.setVariable(QStringLiteral("EDITOR"), path);
}

QStringList editOf(const QString& address)
{
    return {QStringLiteral("edit"), unitOption, address, QStringLiteral("--yes")};
}

QString descriptionOf(ControlTool& tool, const QString& address)
{
    return tool
        .run({QStringLiteral("get"), unitOption, address, QStringLiteral("events[8].description")})
        .output;
}

const QByteArray documentText = "format: quadrel-unit/1\nevents:\n  - id: 8\n    protocol: 01 02\n"
                                "    description: old\n";

/** Where a failure says that the text is. */
QString keptFile(const QString& errors)
{
    static const QRegularExpression path(QStringLiteral("(/\\S+/quadrelctl-\\S+\\.(?:yaml|json))"));
    return path.match(errors).captured(1);
}

} // namespace

class TestQuadrelctlEdit : public QObject {
    Q_OBJECT

private slots:
    void changesAUnit();
    void asksOnATerminal();
    void doesNothing_data();
    void doesNothing();
    void bringsTheEditorBack();
    void givesUpWithoutACorrection();
    void keepsTheTextOfAFailedWrite();
    void saysWhichEditorFails_data();
    void saysWhichEditorFails();
    void prefersVisual();
    void changesFiles_data();
    void changesFiles();
    void leavesNoFileBehind();
};

void TestQuadrelctlEdit::changesAUnit()
{
    const SimulatorProcess unit;
    ControlTool tool;
    setEditor(
        tool, "sed -i 's/description: \"Display off\"/description: \"Screen off\"/' \"$1\"\n");
    const ToolResult result = tool.run(editOf(unit.address()));
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output,
        QStringLiteral("~ events[8]\n    description: \"Display off\" -> \"Screen off\"\n"
                       "Written and read back. \"quadrelctl undo --unit %1\" takes it back.\n")
            .arg(unit.address()));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(descriptionOf(tool, unit.address()), QStringLiteral("Screen off\n"));
}

void TestQuadrelctlEdit::asksOnATerminal()
{
    if (!TerminalProgram::isPossible())
        QSKIP("this machine makes no terminals");
    const SimulatorProcess unit;
    ControlTool tool;
    setEditor(
        tool, "sed -i 's/description: \"Display off\"/description: \"Screen off\"/' \"$1\"\n");
    const ToolResult refused =
        tool.runOnTerminal({QStringLiteral("edit"), unitOption, unit.address()}, QByteArray("n\n"));
    QCOMPARE(refused.exitCode, 1);
    QVERIFY2(
        refused.output.contains(QStringLiteral("nothing was changed")), qPrintable(refused.output));
    QVERIFY(ControlTool::contentsOf(keptFile(refused.output)).contains("Screen off"));
    QVERIFY(QFile::remove(keptFile(refused.output)));
    QCOMPARE(descriptionOf(tool, unit.address()), QStringLiteral("Display off\n"));
}

void TestQuadrelctlEdit::doesNothing_data()
{
    QTest::addColumn<QByteArray>("editor");
    QTest::newRow("unchanged") << QByteArray("true\n");
    QTest::newRow("empty") << QByteArray(": >\"$1\"\n");
    QTest::newRow("blanks") << QByteArray("printf ' \\n\\n' >\"$1\"\n");
}

void TestQuadrelctlEdit::doesNothing()
{
    QFETCH(QByteArray, editor);
    const SimulatorProcess unit;
    ControlTool tool;
    setEditor(tool, editor);
    const ToolResult result = tool.run(editOf(unit.address()));
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.output, QStringLiteral("Nothing was changed.\n"));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(descriptionOf(tool, unit.address()), QStringLiteral("Display off\n"));
}

/** With the mistake above its line; a correction then goes out. */
void TestQuadrelctlEdit::bringsTheEditorBack()
{
    const SimulatorProcess unit;
    ControlTool tool;
    const QString seen = tool.path(QStringLiteral("seen"));
    setEditor(tool,
        "if grep -q 'id: 300' \"$1\"; then cp \"$1\" '" + seen.toUtf8()
            + "'; sed -i 's/id: 300/id: 40/' \"$1\"\n"
              "else sed -i 's/^events:/events:\\n  - id: 300\\n    delay: 10/' \"$1\"; fi\n");
    const ToolResult result = tool.run(editOf(unit.address()));
    QCOMPARE(result.exitCode, 0);
    QVERIFY2(result.output.contains(
                 QStringLiteral("+ events[40]\n    delay: 10\n    description: \"\"\n")),
        qPrintable(result.output));
    const QList<QByteArray> lines = ControlTool::contentsOf(seen).split('\n');
    const int mistake = lines.indexOf("  - id: 300");
    QVERIFY(mistake > 0);
    QVERIFY2(lines.at(mistake - 1).trimmed().startsWith('#'), lines.at(mistake - 1).constData());
}

void TestQuadrelctlEdit::givesUpWithoutACorrection()
{
    const SimulatorProcess unit;
    ControlTool tool;
    setEditor(tool, "grep -q nonsense \"$1\" || echo 'nonsense: 1' >>\"$1\"\n");
    const ToolResult result = tool.run(editOf(unit.address()));
    QCOMPARE(result.exitCode, 1);
    const QString file = keptFile(result.errors);
    QVERIFY2(result.errors.endsWith(
                 QStringLiteral("nothing was changed: the text still has errors. It is in %1\n")
                     .arg(file)),
        qPrintable(result.errors));
    QVERIFY(ControlTool::contentsOf(file).contains("nonsense: 1"));
    QVERIFY(QFile::remove(file));
}

void TestQuadrelctlEdit::keepsTheTextOfAFailedWrite()
{
    const SimulatorProcess unit;
    ControlTool tool;
    tool.write(QStringLiteral("XDG_STATE_HOME"), "no place for a backup");
    setEditor(
        tool, "sed -i 's/description: \"Display off\"/description: \"Screen off\"/' \"$1\"\n");
    const ToolResult result = tool.run(editOf(unit.address()));
    QCOMPARE(result.exitCode, 1);
    const QString file = keptFile(result.errors);
    QVERIFY2(result.errors.endsWith(QStringLiteral("\nThe text is in %1\n").arg(file)),
        qPrintable(result.errors));
    QVERIFY(ControlTool::contentsOf(file).contains("Screen off"));
    QVERIFY(QFile::remove(file));
}

void TestQuadrelctlEdit::saysWhichEditorFails_data()
{
    QTest::addColumn<QString>("editor");
    QTest::newRow("missing") << QStringLiteral("/nowhere/editor");
    QTest::newRow("failing") << QStringLiteral("false");
}

void TestQuadrelctlEdit::saysWhichEditorFails()
{
    QFETCH(QString, editor);
    ControlTool tool;
    tool.setVariable(QStringLiteral("EDITOR"), editor);
    const QString file = tool.write(QStringLiteral("u.yaml"), documentText);
    const ToolResult result = tool.run({QStringLiteral("edit"), file});
    QCOMPARE(result.exitCode, 1);
    QVERIFY2(result.errors.contains(
                 QStringLiteral("the editor \"%1\" has failed, and nothing was changed; set EDITOR "
                                "to another one. The text is in ")
                     .arg(editor)),
        qPrintable(result.errors));
    QVERIFY(QFile::remove(keptFile(result.errors)));
    QCOMPARE(ControlTool::contentsOf(file), documentText);
}

/** Which may have options. */
void TestQuadrelctlEdit::prefersVisual()
{
    ControlTool tool;
    tool.setVariable(QStringLiteral("EDITOR"), QStringLiteral("false"));
    tool.setVariable(QStringLiteral("VISUAL"), QStringLiteral("sed -i s/old/new/"));
    const QString file = tool.write(QStringLiteral("u.yaml"), documentText);
    const ToolResult result = tool.run({QStringLiteral("edit"), file});
    QCOMPARE(result.errors, QString());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(ControlTool::contentsOf(file), QByteArray(documentText).replace("old", "new"));
}

void TestQuadrelctlEdit::changesFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("YAML") << QStringLiteral("u.yaml");
    QTest::newRow("JSON") << QStringLiteral("u.json");
    QTest::newRow("project file") << QStringLiteral("u.xml");
}

void TestQuadrelctlEdit::changesFiles()
{
    QFETCH(QString, name);
    ControlTool tool;
    const QString source = tool.write(QStringLiteral("source.yaml"), documentText);
    const QString file = tool.path(name);
    QCOMPARE(tool.run({QStringLiteral("convert"), source, file}).exitCode, 0);
    setEditor(tool, "sed -i 's/old/new/' \"$1\"\n");
    const ToolResult result = tool.run({QStringLiteral("edit"), file});
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.output, QStringLiteral("~ events[8]\n    description: \"old\" -> \"new\"\n"));
    const ToolResult value =
        tool.run({QStringLiteral("get"), file, QStringLiteral("events[8].description")});
    QCOMPARE(value.output, QStringLiteral("new\n"));
}

void TestQuadrelctlEdit::leavesNoFileBehind()
{
    ControlTool tool;
    const QString folder = tool.path(QStringLiteral("temporary"));
    QVERIFY(QDir().mkdir(folder));
    tool.setVariable(QStringLiteral("TMPDIR"), folder);
    setEditor(tool, "sed -i 's/old/new/' \"$1\"\n");
    const QString file = tool.write(QStringLiteral("u.yaml"), documentText);
    QCOMPARE(tool.run({QStringLiteral("edit"), file}).exitCode, 0);
    QCOMPARE(QDir(folder).entryList(QDir::Files), QStringList());
}

QTEST_GUILESS_MAIN(TestQuadrelctlEdit)
#include "tst_quadrelctledit.moc"
