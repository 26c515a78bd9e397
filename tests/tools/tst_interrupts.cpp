// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "interrupts.h"
#include "tool.h"
#include "withoutdescriptors.h"

#include <QtTest/QtTest>

#include <cerrno>
#include <csignal>
#include <vector>

namespace {

/** What ends the program at the user's wish. */
std::vector<sighandler_t> handlers()
{
    std::vector<sighandler_t> found;
    for (const int signal : {SIGINT, SIGTERM}) {
        struct sigaction action = {};
        sigaction(signal, nullptr, &action);
        found.push_back(action.sa_handler);
    }
    return found;
}

} // namespace

class TestInterrupts : public QObject {
    Q_OBJECT

private slots:
    void areNotWatchedWithoutADescriptor();
    void throwOnceThereWasOne();
};

/** A signal that nothing would notice must keep its usual effect. */
void TestInterrupts::areNotWatchedWithoutADescriptor()
{
    const std::vector<sighandler_t> handlersBefore = handlers();
    QString failure;
    try {
        const WithoutDescriptors none;
        Interrupts::watch(nullptr);
    } catch (const CommandFailure& error) {
        failure = error.text;
    }
    QCOMPARE(failure, QStringLiteral("interrupts can't be watched: ") + qt_error_string(EMFILE));
    QVERIFY(handlers() == handlersBefore);
}

void TestInterrupts::throwOnceThereWasOne()
{
    Interrupts::watch(nullptr);
    Interrupts::throwIfPending();
    QVERIFY(!Interrupts::arePending());
    raise(SIGTERM);
    QVERIFY(Interrupts::arePending());
    QVERIFY_EXCEPTION_THROWN(Interrupts::throwIfPending(), CommandFailure);
    QVERIFY_EXCEPTION_THROWN(Interrupts::awaitInput(-1), CommandFailure);
}

QTEST_GUILESS_MAIN(TestInterrupts)
#include "tst_interrupts.moc"
