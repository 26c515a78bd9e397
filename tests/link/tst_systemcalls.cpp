// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "threadedunit.h"
#include "unitsession.h"

#include <QtTest/QtTest>

#include <algorithm>
#include <cerrno>
#include <functional>
#include <limits>
#include <mutex>
#include <string>
#include <vector>

#include <dlfcn.h>
#include <netdb.h>
#include <sys/socket.h>

using namespace QuadrelUnit;

namespace {

const std::string nameOfTwo = "two.addresses";
/** What nameOfTwo has ahead of the address at which the unit is. */
std::string firstAddress;

/** So many bytes go out at most, or the call fails with the error whose negative this is. */
using Send = std::function<int()>;
constexpr int all = std::numeric_limits<int>::max();
std::mutex sendsMutex;
/** What the link's next calls do. The last one is repeated until it is changed. */
std::vector<Send> sends;

Send goesOut(int bytes)
{
    return [bytes] { return bytes; };
}

Send fails(int error)
{
    return [error] { return -error; };
}

void setSends(const std::vector<Send>& next)
{
    const std::lock_guard lock(sendsMutex);
    sends = next;
}

int bytesOfNextSend(int size)
{
    const std::lock_guard lock(sendsMutex);
    if (sends.empty())
        return size;
    const Send next = sends.front();
    if (sends.size() > 1)
        sends.erase(sends.begin());
    return std::min(next(), size);
}

template <class Function> Function* theSystems(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

// These take the place of the system's calls in this program.

extern "C" ssize_t send(int descriptor, const void* bytes, size_t size, int flags)
{
    // The framework's sockets never ask not to wait.
    if (flags & MSG_DONTWAIT) {
        const int count = bytesOfNextSend(static_cast<int>(size));
        if (count < 0) {
            errno = -count;
            return -1;
        }
        size = static_cast<size_t>(count);
    }
    return sendto(descriptor, bytes, size, flags, nullptr, 0);
}

extern "C" int getaddrinfo(const char* __restrict host, const char* __restrict port,
    const addrinfo* __restrict hints, addrinfo** __restrict results)
{
    static auto* const lookUp = theSystems<decltype(getaddrinfo)>("getaddrinfo");
    if (host != nameOfTwo)
        return lookUp(host, port, hints, results);
    if (hints->ai_flags & AI_NUMERICHOST)
        return EAI_NONAME;
    const int failure = lookUp(firstAddress.c_str(), port, hints, results);
    return failure != 0 ? failure : lookUp("127.0.0.1", port, hints, &(*results)->ai_next);
}

/** What the link makes of answers that the system seldom gives. */
class TestSystemCalls : public QObject {
    Q_OBJECT

private slots:
    void cleanup();
    void movesOnWhenRefused_data();
    void movesOnWhenRefused();
    void isRefusedAtTheLastAddress();
    void sendsWhatHasNotGoneOut_data();
    void sendsWhatHasNotGoneOut();
    void dropsTheConnectionAfterHalfAFrame_data();
    void dropsTheConnectionAfterHalfAFrame();
    void dropsTheConnectionWhenCancelledInMidFrame_data();
    void dropsTheConnectionWhenCancelledInMidFrame();
    void sendsAWholeFrameAgain();
};

void TestSystemCalls::cleanup()
{
    setSends({});
}

void TestSystemCalls::movesOnWhenRefused_data()
{
    QTest::addColumn<int>("protocol");
    QTest::addColumn<QString>("first");
    for (const auto protocol : {UnitAddress::Udp, UnitAddress::Tcp}) {
        const QByteArray name = protocol == UnitAddress::Udp ? "udp" : "tcp";
        for (const char* const first : {"127.0.0.2", "::1"})
            QTest::newRow(name + ", " + first)
                << static_cast<int>(protocol) << QString::fromLatin1(first);
    }
}

/** Without retries: a refusal has reached no unit. */
void TestSystemCalls::movesOnWhenRefused()
{
    QFETCH(int, protocol);
    QFETCH(QString, first);
    const ThreadedUnit unit;
    firstAddress = first.toStdString();
    UnitAddress address = unit.address(static_cast<UnitAddress::Protocol>(protocol));
    address.host = QString::fromStdString(nameOfTwo);
    LinkOptions options;
    options.retries = 0;
    UnitSession session(address, options);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(session.run(UnitRequest::readDevice()).failure.text, QString());
}

void TestSystemCalls::isRefusedAtTheLastAddress()
{
    UnitAddress address = ThreadedUnit().address(UnitAddress::Udp);
    firstAddress = "127.0.0.2";
    address.host = QString::fromStdString(nameOfTwo);
    UnitSession session(address);
    const UnitResult result = session.run(UnitRequest::readDevice());
    QCOMPARE(result.failure.error, std::errc::connection_refused);
    QCOMPARE(result.failure.text, address.toText() + QStringLiteral(" refused the connection"));
}

void TestSystemCalls::sendsWhatHasNotGoneOut_data()
{
    QTest::addColumn<int>("first");
    QTest::newRow("nothing") << 0;
    QTest::newRow("a byte") << 1;
    QTest::newRow("all but a byte") << 19;
    QTest::newRow("the system's queue is full") << -EAGAIN;
}

void TestSystemCalls::sendsWhatHasNotGoneOut()
{
    QFETCH(int, first);
    const ThreadedUnit unit;
    UnitSession session(unit.address());
    QVERIFY(session.run(UnitRequest::readDevice()));
    setSends({goesOut(first), goesOut(1), fails(EINTR), goesOut(all)});
    UnitResult result = session.run(UnitRequest::readDevice());
    QCOMPARE(result.failure.text, QString());
    QCOMPARE(result.data.device.getSN(), Q_UINT64_C(310000001));
}

void TestSystemCalls::dropsTheConnectionAfterHalfAFrame_data()
{
    QTest::addColumn<bool>("isConnected");
    QTest::addColumn<int>("error");
    QTest::addColumn<QString>("failure");
    const QString noSpace = QStringLiteral(": ") + qt_error_string(ENOBUFS);
    const QString noAnswer = QStringLiteral(" does not answer");
    QTest::newRow("fails, connected before") << true << ENOBUFS << noSpace;
    QTest::newRow("fails, new connection") << false << ENOBUFS << noSpace;
    QTest::newRow("runs out of time, connected before") << true << EAGAIN << noAnswer;
    QTest::newRow("runs out of time, new connection") << false << EAGAIN << noAnswer;
}

void TestSystemCalls::dropsTheConnectionAfterHalfAFrame()
{
    QFETCH(bool, isConnected);
    QFETCH(int, error);
    QFETCH(QString, failure);
    const ThreadedUnit unit;
    LinkOptions options;
    options.timeout = 1000;
    UnitSession session(unit.address(), options);
    if (isConnected)
        QVERIFY(session.run(UnitRequest::readDevice()));
    setSends({goesOut(5), fails(error)});
    QCOMPARE(
        session.run(UnitRequest::readDevice()).failure.text, unit.address().toText() + failure);
    QVERIFY(!session.isConnected());

    setSends({});
    QCOMPARE(session.run(UnitRequest::readDevice()).failure.text, QString());
}

void TestSystemCalls::dropsTheConnectionWhenCancelledInMidFrame_data()
{
    QTest::addColumn<int>("sendsBefore");
    QTest::newRow("while the operation sends") << 0;
    QTest::newRow("while the rest is sent") << 1;
}

void TestSystemCalls::dropsTheConnectionWhenCancelledInMidFrame()
{
    QFETCH(int, sendsBefore);
    const ThreadedUnit unit;
    UnitSession session(unit.address());
    QVERIFY(session.run(UnitRequest::readDevice()));
    std::vector<Send> halfAFrame(static_cast<std::size_t>(sendsBefore), goesOut(5));
    halfAFrame.push_back([&session] {
        session.cancel();
        // The link's other thread may give the operation up before this call returns.
        QThread::msleep(50);
        return 5;
    });
    halfAFrame.push_back(fails(EAGAIN));
    setSends(halfAFrame);
    QCOMPARE(session.run(UnitRequest::readDevice()).failure.error,
        make_error_code(LinkError::Cancelled));
    QVERIFY(!session.isConnected());

    setSends({});
    QCOMPARE(session.run(UnitRequest::readDevice()).failure.text, QString());
}

void TestSystemCalls::sendsAWholeFrameAgain()
{
    const ThreadedUnit unit;
    LinkOptions options;
    options.retries = 1;
    UnitSession session(unit.address(), options);
    QVERIFY(session.run(UnitRequest::readDevice()));
    setSends({goesOut(5), fails(ENOBUFS), goesOut(all)});
    QCOMPARE(session.run(UnitRequest::readDevice()).failure.text, QString());
}

QTEST_GUILESS_MAIN(TestSystemCalls)
#include "tst_systemcalls.moc"
