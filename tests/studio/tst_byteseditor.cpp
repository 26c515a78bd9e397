// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "controls.h"
#include "failonwarnings.h"

#include "editors/byteseditor.h"
#include "editors/hexinput.h"

#include <unitcontents.h>

#include <QtCore/QRandomGenerator>
#include <QtGui/QClipboard>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>

using namespace QuadrelDocument;

class TestBytesEditor : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void readsHex_data();
    void readsHex();
    void keepsTheSidesInStep_data();
    void keepsTheSidesInStep();
    void showsWrongInput_data();
    void showsWrongInput();
    void keepsTheOtherSideFromReplacingWrongInput();
    void saysWhatIsLeft_data();
    void saysWhatIsLeft();
    void takesPastedText();
    void takesItsUsualFormWhenLeft();
    void keepsDraftsOfEachSide_data();
    void keepsDraftsOfEachSide();
    void returnsRandomBytes();
    void survivesRandomInput();
    void hasNames();

private:
    QPlainTextEdit* hex() const;
    QPlainTextEdit* text() const;
    bool shows(const QString& words) const;

    std::unique_ptr<BytesEditor> m_editor;
};

void TestBytesEditor::initTestCase()
{
    failOnWarnings();
}

void TestBytesEditor::init()
{
    m_editor = std::make_unique<BytesEditor>(Limit::commandBytes);
    QVERIFY(showActive(*m_editor));
}

void TestBytesEditor::cleanup()
{
    m_editor.reset();
}

QPlainTextEdit* TestBytesEditor::hex() const
{
    return controlNamed<QPlainTextEdit>(*m_editor, QStringLiteral("Hexadecimal digits"));
}

QPlainTextEdit* TestBytesEditor::text() const
{
    return controlNamed<QPlainTextEdit>(*m_editor, QStringLiteral("Text"));
}

bool TestBytesEditor::shows(const QString& words) const
{
    const auto labels = m_editor->findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(),
        [&words](const QLabel* label) { return label->text() == words; });
}

void TestBytesEditor::readsHex_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("errorStart");
    QTest::addColumn<int>("errorLength");
    QTest::newRow("nothing") << "" << QByteArray() << 0 << 0;
    QTest::newRow("pairs") << "41 42" << QByteArray("AB") << 0 << 0;
    QTest::newRow("one run") << "4142" << QByteArray("AB") << 0 << 0;
    QTest::newRow("capitals") << "fF" << QByteArray("\xFF") << 0 << 0;
    QTest::newRow("colons") << "41:42" << QByteArray("AB") << 0 << 0;
    QTest::newRow("dashes, commas, semicolons") << "41-42,43;44" << QByteArray("ABCD") << 0 << 0;
    QTest::newRow("lines and tabs") << "41\r\n\t42\n" << QByteArray("AB") << 0 << 0;
    QTest::newRow("of C") << "{0x41, 0x42}" << QByteArray("AB") << 0 << 0;
    QTest::newRow("of C, one digit") << "0xD, 0XA" << QByteArray("\r\n") << 0 << 0;
    QTest::newRow("of C, joined") << "0x410x42" << QByteArray("AB") << 0 << 0;
    QTest::newRow("of C, long") << "0x4142" << QByteArray("AB") << 0 << 0;
    QTest::newRow("escapes") << "\\x41\\x42" << QByteArray("AB") << 0 << 0;
    QTest::newRow("a null") << "00" << QByteArray(1, '\0') << 0 << 0;
    QTest::newRow("brackets of a dump") << "<41 42>" << QByteArray("AB") << 0 << 0;
    QTest::newRow("half a byte") << "41 4" << QByteArray("A") << 3 << 1;
    QTest::newRow("three digits") << "414" << QByteArray("A") << 2 << 1;
    QTest::newRow("half a byte, then more") << "4 42" << QByteArray() << 0 << 1;
    QTest::newRow("a letter") << "41 4g" << QByteArray("A") << 3 << 1;
    QTest::newRow("a word") << "hello" << QByteArray() << 0 << 1;
    QTest::newRow("a bare prefix") << "41 0x" << QByteArray("A") << 3 << 1;
    QTest::newRow("a letter of another script")
        << QString::fromUtf8("41你") << QByteArray("A") << 2 << 1;
    QTest::newRow("digits of another script")
        << QString::fromUtf8("４１") << QByteArray() << 0 << 1;
}

void TestBytesEditor::readsHex()
{
    QFETCH(QString, typed);
    const HexInput input = HexInput::fromText(typed);
    QTEST(input.bytes, "bytes");
    QTEST(input.errorStart, "errorStart");
    QTEST(input.errorLength, "errorLength");
    QFETCH(int, errorLength);
    QCOMPARE(input.isValid(), errorLength == 0);
}

void TestBytesEditor::keepsTheSidesInStep_data()
{
    QTest::addColumn<bool>("typesHex");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("other");
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("hex") << true << "41 0d"
                         << "A\\r" << QByteArray("A\r");
    QTest::newRow("hex, no blanks") << true << "410D0a"
                                    << "A\\r\\n"
                                    << QByteArray("A\r\n");
    QTest::newRow("text") << false << "AB"
                          << "41 42" << QByteArray("AB");
    QTest::newRow("escapes") << false << "A\\r\\x7f\\\\"
                             << "41 0d 7f 5c" << QByteArray("A\r\x7f\\");
    QTest::newRow("a character of one byte")
        << false << QString::fromUtf8("é") << "e9" << QByteArray("\xE9");
}

void TestBytesEditor::keepsTheSidesInStep()
{
    QFETCH(bool, typesHex);
    QFETCH(QString, typed);
    QPlainTextEdit* typedInto = typesHex ? hex() : text();
    typedInto->setFocus();
    QSignalSpy edits(m_editor.get(), &CellEditor::edited);
    typeInto(typedInto, typed);
    QTEST((typesHex ? text() : hex())->toPlainText(), "other");
    QTEST(m_editor->value().toByteArray(), "bytes");
    QCOMPARE(typedInto->toPlainText(), typed);
    QCOMPARE(m_editor->problem(), QString());
    QCOMPARE(edits.size(), typed.size());
}

void TestBytesEditor::showsWrongInput_data()
{
    QTest::addColumn<bool>("typesHex");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("problem");
    QTest::newRow("half a byte") << true << "41 4"
                                 << "The digit at place 4 needs a second one.";
    QTest::newRow("a letter")
        << true << "41 x"
        << "“x” at place 4 is no hexadecimal digit; 0 to 9 and A to F are allowed.";
    QTest::newRow("a lone backslash")
        << false << "A\\"
        << "The backslash at place 2 begins no escape; \\\\ \\r \\n \\t \\0 and \\xHH are allowed.";
    QTest::newRow("half an escape")
        << false << "\\x4"
        << "The backslash at place 1 begins no escape; \\\\ \\r \\n \\t \\0 and \\xHH are allowed.";
    QTest::newRow("a character of more bytes")
        << false << QString::fromUtf8("A\\r你")
        << "“你” at place 4 is more than one byte; type its bytes as hexadecimal digits.";
}

void TestBytesEditor::showsWrongInput()
{
    QFETCH(bool, typesHex);
    QFETCH(QString, typed);
    QPlainTextEdit* pane = typesHex ? hex() : text();
    pane->insertPlainText(typed);
    QTEST(m_editor->problem(), "problem");
    QVERIFY(shows(m_editor->problem()));
    QCOMPARE(m_editor->accessibleDescription(), m_editor->problem());
    QCOMPARE(pane->extraSelections().size(), typesHex ? 1 : 0);
    pane->undo();
    QCOMPARE(m_editor->problem(), QString());
    QVERIFY(pane->extraSelections().isEmpty());
}

void TestBytesEditor::keepsTheOtherSideFromReplacingWrongInput()
{
    m_editor->setValue(QByteArray("AB"));
    hex()->setFocus();
    hex()->moveCursor(QTextCursor::End);
    QTest::keyClicks(hex(), QStringLiteral(" 4"));
    text()->setFocus();
    QTest::keyClicks(text(), QStringLiteral("lost"));
    QCOMPARE(hex()->toPlainText(), QStringLiteral("41 42 4"));
    QCOMPARE(text()->toPlainText(), QStringLiteral("AB"));

    hex()->setFocus();
    QTest::keyClicks(hex(), QStringLiteral("3"));
    text()->setFocus();
    text()->moveCursor(QTextCursor::End);
    QTest::keyClicks(text(), QStringLiteral("D"));
    QCOMPARE(m_editor->value().toByteArray(), QByteArray("ABCD"));
}

void TestBytesEditor::saysWhatIsLeft_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QString>("words");
    QTest::newRow("none") << 0 << "0 of 319 bytes, 319 left";
    QTest::newRow("one") << 1 << "1 of 319 bytes, 318 left";
    QTest::newRow("full") << 319 << "319 of 319 bytes, 0 left";
    QTest::newRow("one too many") << 320 << "320 of 319 bytes: 1 too many";
    QTest::newRow("many too many") << 1000 << "1000 of 319 bytes: 681 too many";
}

void TestBytesEditor::saysWhatIsLeft()
{
    QFETCH(int, size);
    QFETCH(QString, words);
    const QByteArray bytes(size, 'a');
    m_editor->setValue(bytes);
    QVERIFY(shows(words));
    QCOMPARE(m_editor->value().toByteArray(), bytes);
    QCOMPARE(m_editor->problem(), QString());
}

void TestBytesEditor::takesPastedText()
{
    QApplication::clipboard()->setText(QStringLiteral("0x50, 0x57\n0x52"));
    hex()->setFocus();
    QTest::keySequence(hex(), QKeySequence::Paste);
    QCOMPARE(m_editor->value().toByteArray(), QByteArray("PWR"));
    QCOMPARE(text()->toPlainText(), QStringLiteral("PWR"));
}

void TestBytesEditor::takesItsUsualFormWhenLeft()
{
    hex()->setFocus();
    QTest::keyClicks(hex(), QStringLiteral("0X41,42"));
    QCOMPARE(hex()->toPlainText(), QStringLiteral("0X41,42"));
    QTest::keyClick(hex(), Qt::Key_Tab);
    QVERIFY(text()->hasFocus());
    QCOMPARE(hex()->toPlainText(), QStringLiteral("41 42"));
    QTest::keyClick(text(), Qt::Key_Backtab);
    QVERIFY(hex()->hasFocus());
}

void TestBytesEditor::keepsDraftsOfEachSide_data()
{
    QTest::addColumn<bool>("typesHex");
    QTest::addColumn<QString>("typed");
    QTest::newRow("hex") << true << "41 4";
    QTest::newRow("text") << false << "A\\";
}

void TestBytesEditor::keepsDraftsOfEachSide()
{
    QFETCH(bool, typesHex);
    QFETCH(QString, typed);
    (typesHex ? hex() : text())->insertPlainText(typed);
    BytesEditor other(Limit::commandBytes);
    other.setValue(QByteArray("before"));
    other.setDraft(m_editor->draft());
    QCOMPARE(other.problem(), m_editor->problem());
    QVERIFY(!other.problem().isEmpty());
    QCOMPARE(other.draft().text, typed);
}

/** What one side shows of any bytes, the other reads as the same bytes. */
void TestBytesEditor::returnsRandomBytes()
{
    QRandomGenerator random(1);
    for (int round = 0; round < 200; ++round) {
        QByteArray bytes(random.bounded(40), '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(random.bounded(256));
        m_editor->setValue(bytes);
        const QString shownHex = hex()->toPlainText();
        const QString shownText = text()->toPlainText();
        m_editor->setValue(QByteArray("other"));
        hex()->setPlainText(shownHex);
        QCOMPARE(m_editor->value().toByteArray(), bytes);
        m_editor->setValue(QByteArray("other"));
        text()->setPlainText(shownText);
        QCOMPARE(m_editor->value().toByteArray(), bytes);
        QCOMPARE(hex()->toPlainText(), shownHex);
    }
}

/** Either there is a problem, or both sides say the same. */
void TestBytesEditor::survivesRandomInput()
{
    const QString characters = QString::fromUtf8("0123456789abcdefABCDEFxX\\rnt gé你,:-\n");
    QRandomGenerator random(2);
    for (int round = 0; round < 500; ++round) {
        QString typed;
        for (int i = random.bounded(12); i > 0; --i)
            typed += characters.at(random.bounded(characters.size()));
        m_editor->setValue(QByteArray());
        (round % 2 == 0 ? hex() : text())->setPlainText(typed);
        if (!m_editor->problem().isEmpty())
            continue;
        const QByteArray bytes = m_editor->value().toByteArray();
        QCOMPARE(HexInput::fromText(hex()->toPlainText()).bytes, bytes);
        QCOMPARE(bytesOfEscapedText(text()->toPlainText()).value_or("no bytes"), bytes);
    }
}

void TestBytesEditor::hasNames()
{
    QCOMPARE(controlsWithoutName(*m_editor), QStringList());
}

QTEST_MAIN(TestBytesEditor)
#include "tst_byteseditor.moc"
