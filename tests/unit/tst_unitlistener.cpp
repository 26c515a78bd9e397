// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitclient.h"
#include "unitserver.h"

#include <cerrno>

#include <dlfcn.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace QuadrelUnit;

namespace {

/** What the next accept fails with; 0 for nothing. */
int nextError = 0;

} // namespace

// Takes the place of the system's call in this program.
extern "C" int accept4(
    int listening, sockaddr* __restrict address, socklen_t* __restrict length, int flags)
{
    static auto* const accept = reinterpret_cast<decltype(accept4)*>(dlsym(RTLD_NEXT, "accept4"));
    if (nextError == 0)
        return accept(listening, address, length, flags);
    errno = nextError;
    nextError = 0;
    return -1;
}

class TestUnitListener : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void outlivesAFailedAccept_data();
    void outlivesAFailedAccept();
    void takesAClientAsItsFirstDescriptor();

private:
    std::unique_ptr<ControlUnit> m_unit;
    std::unique_ptr<UnitServer> m_server;
};

void TestUnitListener::init()
{
    m_unit = std::make_unique<ControlUnit>();
    m_server = std::make_unique<UnitServer>(m_unit.get());
    QString error;
    QVERIFY2(m_server->listen(QHostAddress::LocalHost, 0, &error), qPrintable(error));
}

void TestUnitListener::cleanup()
{
    nextError = 0;
    m_server.reset();
}

void TestUnitListener::outlivesAFailedAccept_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("notice");
    QTest::newRow("the client has gone") << ECONNABORTED << QString();
    QTest::newRow("a signal") << EINTR << QString();
    QTest::newRow("a fault of the client") << EPROTO << QString();
    QTest::newRow("nobody there") << EAGAIN << QString();
    QTest::newRow("too many files of all programs")
        << ENFILE << "a client cannot connect: Too many open files in system; trying again";
    QTest::newRow("no memory") << ENOMEM
                               << "a client cannot connect: Cannot allocate memory; trying again";
}

void TestUnitListener::outlivesAFailedAccept()
{
    QFETCH(int, error);
    QFETCH(QString, notice);
    QSignalSpy notices(m_server.get(), &UnitServer::notice);
    nextError = error;
    UnitClient client(m_server->port());
    client.send(readInformation());
    TRY_COMPARE(client.bytes(), informationReply(*m_unit));
    QCOMPARE(nextError, 0);
    QCOMPARE(notices.size(), notice.isEmpty() ? 0 : 1);
    QCOMPARE(notices.value(0).value(0).toString(), notice);
}

/** A program without standard input has descriptor 0 to give away. */
void TestUnitListener::takesAClientAsItsFirstDescriptor()
{
    UnitClient client(m_server->port());
    TRY_COMPARE(m_server->connectionCount(), 1);
    QTcpSocket second;
    second.connectToHost(QHostAddress::LocalHost, m_server->port());
    QVERIFY(second.waitForConnected(patience));

    const int input = dup(STDIN_FILENO);
    QVERIFY(input > 0);
    ::close(STDIN_FILENO);
    TRY_COMPARE(m_server->connectionCount(), 2);
    m_server.reset();
    QCOMPARE(dup2(input, STDIN_FILENO), STDIN_FILENO);
    ::close(input);
}

QTEST_GUILESS_MAIN(TestUnitListener)
#include "tst_unitlistener.moc"
