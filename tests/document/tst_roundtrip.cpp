// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentscheck.h"
#include "contentsdifference.h"
#include "memorycontents.h"
#include "samplecontents.h"
#include "unitaddresses.h"
#include "unitblocks.h"
#include "unitdocument.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QtTest>

using namespace QuadrelDocument;
using namespace QuadrelUnit;

namespace {

constexpr int units = 10000;

/** Units and contents out of a seed. */
class Random {
public:
    explicit Random(quint32 seed)
        : m_generator(seed)
    {
    }

    int below(int limit) { return m_generator.bounded(limit); }
    bool chance(int percent) { return below(100) < percent; }

    QByteArray bytes(int most)
    {
        QByteArray bytes(below(most + 1), '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(below(256));
        return bytes;
    }

    /** Text of all planes, with all that means something to a format or a unit. */
    QString text(int most)
    {
        static const QString special = QStringLiteral("$$:#-'\"\\{}[],&*!|>%@`\t\r\n ~0x开机\x7F")
            + QChar(0x07) + QChar(0x1B) + QChar(0x85) + QChar(0x2028) + QChar(0xFFFE)
            + QChar(0xFEFF) + QChar(0xFFFD);
        QString text;
        const int size = below(most + 1);
        while (text.size() < size) {
            const uint other = 1 + static_cast<uint>(below(0xD7FF));
            const uint plane = 0x10000 + static_cast<uint>(below(0x100000));
            if (chance(60))
                text += special.at(below(special.size()));
            else if (chance(90) || text.size() + 2 > size)
                text += QChar(static_cast<ushort>(other));
            else
                text += QString::fromUcs4(&plane, 1);
        }
        return text;
    }

    EventIds ids(int most)
    {
        EventIds ids(size_t(1 + below(most)));
        for (quint8& id : ids)
            id = static_cast<quint8>(below(256));
        return ids;
    }

    QDate date() { return QDate(2000 + below(100), 1, 1).addDays(below(365)); }
    QTime time() { return QTime(below(24), below(60)); }

private:
    QRandomGenerator m_generator;
};

void writeTable(UnitMemory& memory, quint32 address, const QList<QByteArray>& blocks)
{
    QByteArray table(1, static_cast<char>(blocks.size()));
    for (const QByteArray& block : blocks)
        table += block;
    memory.write(address, table);
}

QByteArray command(Random& random)
{
    static const char* const heads[] = {"4c0100a5a5", "4c0100a502", "4c01002510", "4c01002417",
        "4c010024a7", "4c01002418", "4c010020a5", ""};
    if (random.chance(30))
        return delayCommand(static_cast<quint16>(random.below(0x10000)));
    const QByteArray head = QByteArray::fromHex(heads[random.below(8)]);
    return head + random.bytes(random.chance(5) ? Limit::commandBytes - head.size() : 20);
}

/** The text of an event, perhaps with a name, that its block has room for. */
QString eventText(Random& random, int commandBytes)
{
    const int room = qMin(Limit::eventText, (Limit::eventBytes - commandBytes) / 2);
    const QString text = random.text(random.chance(5) ? room : 20);
    return random.chance(30) ? (text + QStringLiteral("$$") + random.text(10)).left(room) : text;
}

void writeConfig(UnitMemory& memory, Random& random, bool isHostile)
{
    const int ports = random.below(10);
    const int lines = random.below(13);
    memory.write(Address::information + 29,
        QByteArray(1, static_cast<char>(ports)) + static_cast<char>(lines));
    if (isHostile) {
        memory.write(Address::serialPorts, random.bytes(70));
        memory.write(Address::ioLines, random.bytes(26));
        return;
    }
    QByteArray bytes;
    for (int i = 0; i < ports; ++i)
        bytes += serialPortRecord(
            {static_cast<quint32>(random.below(0x7FFFFFFF)), static_cast<quint8>(random.below(256)),
                static_cast<quint8>(random.below(256)), static_cast<Parity>(random.below(3))});
    memory.write(Address::serialPorts, bytes);
    bytes.clear();
    for (int i = 0; i < lines; ++i)
        bytes += ioLineRecord(static_cast<IoSetting>(random.below(3)));
    memory.write(Address::ioLines, bytes);
}

/** Whatever a unit may have in its tables. */
UnitMemory randomUnit(quint32 seed)
{
    Random random(seed);
    UnitMemory memory;
    writeConfig(memory, random, false);
    const bool isFull = seed % 1000 == 0;
    QList<QByteArray> blocks;
    for (int i = isFull ? Limit::events : random.below(5); i > 0; --i) {
        const QByteArray bytes = command(random);
        blocks.append(
            EventRecord{static_cast<quint8>(i), bytes, eventText(random, bytes.size())}.block());
    }
    writeTable(memory, Address::eventCount, blocks);
    blocks.clear();
    for (int i = isFull ? Limit::tableEntries : random.below(5); i > 0; --i) {
        const QString text = random.text(random.chance(10) ? Limit::triggerDescription : 10);
        const EventIds ids = random.ids(random.chance(5) ? Limit::eventsOfTrigger : 4);
        const QByteArray data = random.bytes(random.chance(5) ? Limit::parameterBytes : 12);
        if (random.chance(40))
            blocks.append(
                SerialTriggerRecord{random.below(14), random.chance(50), data, ids, text}.block());
        else if (random.chance(50))
            blocks.append(IoTriggerRecord{random.below(16), random.chance(50), ids, text}.block());
        else
            blocks.append(TimeTriggerRecord{static_cast<QuadrelUnit::Repeat>(random.below(3)),
                random.date(), random.chance(50) ? random.date() : QDate(), random.time(),
                static_cast<quint8>(random.below(256)), ids, text}
                              .block());
    }
    writeTable(memory, Address::triggerCount, blocks);
    return memory;
}

/** What no unit should have, but what the library reads all the same. */
UnitMemory hostileUnit(quint32 seed)
{
    Random random(seed);
    UnitMemory memory;
    writeConfig(memory, random, true);
    QList<QByteArray> blocks;
    const auto filled = [&random](QByteArray block) {
        while (block.size() < Address::recordLength)
            block += random.chance(50) ? QByteArray(1, '\0') : random.bytes(40);
        return block.left(Address::recordLength);
    };
    for (int i = random.below(5); i > 0; --i) {
        const QByteArray bytes = command(random);
        blocks.append(filled(random.bytes(1).leftJustified(1, '\0')
            + static_cast<char>(bytes.size()) + static_cast<char>(bytes.size() >> 8) + bytes
            + static_cast<char>(random.below(256)) + random.bytes(255)));
    }
    writeTable(memory, Address::eventCount, blocks);
    blocks.clear();
    static const char* const heads[] = {"4c010025100352", "4c010024170252", "4c0100a504"};
    for (int i = random.below(5); i > 0; --i) {
        const int length = random.chance(80) ? 10 + random.below(12) : random.below(316);
        QByteArray body = QByteArray::fromHex(heads[random.below(3)]) + random.bytes(300);
        // Masks and levels that mean something come more often.
        body = body.leftJustified(8, '\0');
        if (random.chance(50))
            body[7] = static_cast<char>(random.below(4));
        body = body.leftJustified(length, static_cast<char>(random.below(3)), true);
        const int events = random.below(4);
        blocks.append(
            filled(QByteArray(1, static_cast<char>(length)) + static_cast<char>(length >> 8) + body
                + static_cast<char>(events) + random.bytes(3).leftJustified(events, '\1', true)
                + static_cast<char>(random.below(65)) + random.bytes(64)));
    }
    writeTable(memory, Address::triggerCount, blocks);
    return memory;
}

/** What somebody may write into a document. */
Contents randomContents(quint32 seed)
{
    Random random(seed);
    Contents contents = MemoryContents::read(randomUnit(seed));
    const auto text = [&random](QString text) {
        if (random.chance(20))
            text = random.text(140);
        if (random.chance(5))
            text.insert(random.below(text.size() + 1), QChar(random.chance(50) ? 0xD800 : 0));
        if (random.chance(20))
            text += QStringLiteral("$");
        return text;
    };
    for (Event& event : *contents.events) {
        event.description = text(event.description);
        if (random.chance(50))
            event.name = text(random.chance(5) ? QStringLiteral("事件名称01") : QString());
        if (random.chance(20))
            event.command = random.bytes(400);
        if (random.chance(20))
            event.delay = random.below(70000);
        if (event.delay)
            event.command.clear();
    }
    for (Trigger& trigger : *contents.triggers) {
        trigger.description = text(trigger.description).left(40);
        trigger.line = random.below(17);
        if (random.chance(10))
            trigger.eventIds.clear();
        if (random.chance(10))
            trigger.level.reset();
        if (trigger.kind != TriggerKind::Io && random.chance(10))
            trigger.parameter = random.bytes(400);
    }
    static const char* const dates[] = {"2026/02/30", "20100/01/01", "200/00/00", "2024/13/01",
        "206/09/27", "20165/165/165", "2024/1/1"};
    for (TimeTrigger& trigger : *contents.timeTriggers) {
        trigger.description = text(trigger.description).left(40);
        if (random.chance(20))
            trigger.startDate = QLatin1String(dates[random.below(7)]);
        if (random.chance(20))
            trigger.endDate = QLatin1String(dates[random.below(7)]);
        if (random.chance(20))
            trigger.time = QLatin1String(random.chance(50) ? "24:00" : "99:99");
        if (random.chance(10))
            trigger.weekdays = {1, 9};
    }
    return contents;
}

/** Whether a unit would give these contents back, whatever else is wrong with them. */
bool isCarried(const Findings& findings)
{
    return std::all_of(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.severity != Severity::Error || finding.isCarried;
    });
}

bool hasLoneSurrogate(const Findings& findings)
{
    return std::any_of(findings.begin(), findings.end(),
        [](const Finding& finding) { return finding.text.contains(QLatin1String("surrogate")); });
}

/** The document says all, and says it again in the same words. */
bool survivesDocument(const Contents& contents, Form form)
{
    const QByteArray text = writeDocument(contents, form);
    const Document document = parseDocument(text, form);
    if (!document.findings.isEmpty() || document.contents != contents)
        qWarning("%s\n%s", qPrintable(messagesOf(document.findings)),
            qPrintable(differenceText(compareContents(contents, document.contents))));
    return document.findings.isEmpty() && document.contents == contents
        && writeDocument(document.contents, form) == text;
}

} // namespace

/** Unit, contents, document, contents, unit: nothing is lost on the way round. */
class TestRoundTrip : public QObject {
    Q_OBJECT

private slots:
    void keepsTheSample();
    void keepsTheFullUnit();
    void keepsRandomUnits();
    void keepsWhatHostileUnitsHold();
    void refusesWhatDoesNotComeBack();
};

void TestRoundTrip::keepsTheSample()
{
    const Contents contents = sampleContents();
    QVERIFY(isCarried(checkContents(contents)));
    QVERIFY(survivesDocument(contents, Form::Yaml));
    QVERIFY(survivesDocument(contents, Form::Json));
    QVERIFY(MemoryContents::writtenAndRead(contents) == contents);
}

/** As many records as a unit has room for, each as large as can be. */
void TestRoundTrip::keepsTheFullUnit()
{
    UnitMemory memory;
    memory.write(Address::information + 29, QByteArray::fromHex("101a"));
    QList<QByteArray> blocks;
    for (int i = 0; i < Limit::events; ++i) {
        const QByteArray bytes(i % 2 ? Limit::commandBytes : 254, static_cast<char>(i));
        const int room = qMin(Limit::eventText, (Limit::eventBytes - bytes.size()) / 2);
        const QString text = QString(room / 2 - 2, QChar(0x5F00 + i)) + QStringLiteral("$$");
        blocks.append(
            EventRecord{static_cast<quint8>(i), bytes, text.leftJustified(room, QLatin1Char('x'))}
                .block());
    }
    writeTable(memory, Address::eventCount, blocks);
    blocks.clear();
    EventIds ids(Limit::eventsOfTrigger);
    for (size_t i = 0; i < ids.size(); ++i)
        ids[i] = static_cast<quint8>(i);
    const QString text(Limit::triggerDescription, QChar(0x5F00));
    for (int i = 0; i < Limit::tableEntries; ++i) {
        const QByteArray data(Limit::parameterBytes, static_cast<char>(i));
        if (i % 3 == 0)
            blocks.append(SerialTriggerRecord{i % 14, i % 2 == 0, data, ids, text}.block());
        else if (i % 3 == 1)
            blocks.append(IoTriggerRecord{i % 16, i % 2 == 0, ids, text}.block());
        else
            blocks.append(TimeTriggerRecord{QuadrelUnit::Repeat::Weekly, {2000, 2, 29},
                {2099, 12, 31}, {23, 59}, 0xFF, ids, text}
                              .block());
    }
    writeTable(memory, Address::triggerCount, blocks);

    const Contents contents = MemoryContents::read(memory);
    QVERIFY(!hasErrors(checkContents(contents)));
    QVERIFY(survivesDocument(contents, Form::Yaml));
    QVERIFY(survivesDocument(contents, Form::Json));
    QVERIFY(MemoryContents::writtenAndRead(contents) == contents);
}

void TestRoundTrip::keepsRandomUnits()
{
    for (quint32 seed = 0; seed < units; ++seed) {
        const Contents contents = MemoryContents::read(randomUnit(seed));
        const Form form = seed % 2 == 0 ? Form::Yaml : Form::Json;
        const Findings findings = checkContents(contents);
        if (!isCarried(findings))
            QFAIL(qPrintable(messagesOf(findings)));
        QVERIFY2(survivesDocument(contents, form), qPrintable(QString::number(seed)));
        QVERIFY2(MemoryContents::writtenAndRead(contents) == contents,
            qPrintable(QString::number(seed)));
    }
}

void TestRoundTrip::keepsWhatHostileUnitsHold()
{
    int refused = 0;
    for (quint32 seed = 0; seed < units / 2; ++seed) {
        const Contents contents = MemoryContents::read(hostileUnit(seed));
        const Form form = seed % 2 == 0 ? Form::Yaml : Form::Json;
        QVERIFY2(survivesDocument(contents, form), qPrintable(QString::number(seed)));
        if (isCarried(checkContents(contents)))
            QVERIFY2(MemoryContents::writtenAndRead(contents) == contents,
                qPrintable(QString::number(seed)));
        else
            ++refused;
    }
    QVERIFY(refused > 0 && refused < units / 2);
}

/** The check refuses neither more nor less than what a unit gives back as something else. */
void TestRoundTrip::refusesWhatDoesNotComeBack()
{
    int refused = 0;
    for (quint32 seed = 0; seed < units / 2; ++seed) {
        const Contents contents = randomContents(seed);
        const Findings findings = checkContents(contents);
        if (!isCarried(findings)) {
            ++refused;
            continue;
        }
        const bool survives = MemoryContents::writtenAndRead(contents) == contents
            && (hasLoneSurrogate(findings) || survivesDocument(contents, Form::Yaml));
        if (!survives)
            QFAIL(qPrintable(QStringLiteral("%1 %2").arg(seed).arg(messagesOf(findings))));
    }
    QVERIFY(refused > 0 && refused < units / 2);
}

QTEST_GUILESS_MAIN(TestRoundTrip)
#include "tst_roundtrip.moc"
