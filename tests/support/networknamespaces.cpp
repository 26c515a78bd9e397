// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "networknamespaces.h"

#include "patience.h"

#include <QtCore/QFile>

#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <sched.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace {

[[noreturn]] void fail(const char* what)
{
    qFatal("%s: %s", what, std::strerror(errno));
}

int openCurrentNamespace()
{
    const int descriptor = open("/proc/thread-self/ns/net", O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        fail("opening the network namespace");
    return descriptor;
}

void switchTo(int descriptor)
{
    if (setns(descriptor, CLONE_NEWNET) != 0)
        fail("entering a network namespace");
}

bool writeFile(const char* path, const QByteArray& text)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)
        && file.write(text) == text.size();
}

// Whoever has no rights on the machine may have them in a user namespace.
bool enterUserAndNetworkNamespace()
{
    const QByteArray user = QByteArray::number(getuid());
    const QByteArray group = QByteArray::number(getgid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNET) == 0
        && writeFile("/proc/self/uid_map", "0 " + user + " 1")
        && writeFile("/proc/self/setgroups", "deny")
        && writeFile("/proc/self/gid_map", "0 " + group + " 1");
}

// Runs `ip` in the namespace of the calling thread; returns what it had to complain of.
QString runIp(const QStringList& commands)
{
    Program process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    if (!process.launch(QStringLiteral("ip"), {QStringLiteral("-batch"), QStringLiteral("-")}))
        return QStringLiteral("running ip: ") + process.errorString();
    process.write(commands.join(QLatin1Char('\n')).toUtf8() + '\n');
    process.closeWriteChannel();
    if (process.waitForExit() == 0)
        return {};
    return commands.join(QLatin1String("; ")) + QLatin1String(": ")
        + QString::fromLocal8Bit(process.readAll());
}

bool isRunning(const NetworkNamespace& network, const QString& interface, const QByteArray& state)
{
    NamespaceProcess process(network);
    return process.launch(QStringLiteral("ip"),
               {QStringLiteral("-details"), QStringLiteral("-oneline"), QStringLiteral("link"),
                   QStringLiteral("show"), QStringLiteral("dev"), interface})
        && process.waitForExit() == 0 && process.readAll().contains(state);
}

// A link that was just set up drops what is sent before the kernel noticed that it is.
void waitUntilRunning(
    const NetworkNamespace& network, const QString& interface, const QByteArray& state)
{
    const QDeadlineTimer deadline(patience);
    while (!deadline.hasExpired()) {
        if (isRunning(network, interface, state))
            return;
    }
    qFatal("the interface %s doesn't come up", qPrintable(interface));
}

} // namespace

QString enterPrivateNetwork()
{
    if (unshare(CLONE_NEWNET) != 0 && !enterUserAndNetworkNamespace())
        return QStringLiteral("no right to make network namespaces (run as root): ")
            + QString::fromLocal8Bit(std::strerror(errno));
    const QString complaint = runIp({QStringLiteral("link add bridge0 type bridge"),
        QStringLiteral("link add veth0 type veth peer name veth1"),
        QStringLiteral("link del bridge0"), QStringLiteral("link del veth0")});
    return complaint.isEmpty()
        ? QString()
        : QStringLiteral("no network of namespaces can be built: ") + complaint.trimmed();
}

NetworkNamespace::NetworkNamespace()
{
    const int former = openCurrentNamespace();
    if (unshare(CLONE_NEWNET) != 0)
        fail("making a network namespace");
    m_descriptor = openCurrentNamespace();
    switchTo(former);
    close(former);
    ip({QStringLiteral("link set lo up")});
}

NetworkNamespace::~NetworkNamespace()
{
    close(m_descriptor);
}

void NetworkNamespace::ip(const QStringList& commands) const
{
    const InsideNamespace inside(*this);
    const QString complaint = runIp(commands);
    if (!complaint.isEmpty())
        qFatal("%s", qPrintable(complaint));
}

InsideNamespace::InsideNamespace(const NetworkNamespace& network)
    : m_formerDescriptor(openCurrentNamespace())
{
    switchTo(network.descriptor());
}

InsideNamespace::~InsideNamespace()
{
    switchTo(m_formerDescriptor);
    close(m_formerDescriptor);
}

NamespaceProcess::NamespaceProcess(const NetworkNamespace& network, QObject* parent)
    : Program(parent)
    , m_descriptor(network.descriptor())
{
}

void NamespaceProcess::setupChildProcess()
{
    // Runs between fork and exec, where nothing can be reported: a program in the wrong network
    // must not start.
    if (setns(m_descriptor, CLONE_NEWNET) != 0 || prctl(PR_SET_PDEATHSIG, SIGKILL) != 0)
        _exit(126);
}

TestNetwork::TestNetwork()
{
    m_bridge.ip({QStringLiteral("link add bridge0 type bridge mcast_snooping 0"),
        QStringLiteral("link set bridge0 up")});
}

const NetworkNamespace& TestNetwork::addHost(const QStringList& addresses)
{
    m_hosts.push_back(std::make_unique<NetworkNamespace>());
    const NetworkNamespace& host = *m_hosts.back();
    const QString port = QStringLiteral("port%1").arg(m_hosts.size());

    m_bridge.ip({QStringLiteral("link add %1 type veth peer name eth0 netns /proc/%2/fd/%3")
                     .arg(port)
                     .arg(getpid())
                     .arg(host.descriptor()),
        QStringLiteral("link set %1 master bridge0 up").arg(port)});

    QStringList commands{QStringLiteral("link set eth0 addrgenmode none")};
    for (const QString& address : addresses) {
        const bool isIPv6 = address.contains(QLatin1Char(':'));
        commands += QStringLiteral("address add %1 dev eth0%2")
                        .arg(address, isIPv6 ? QStringLiteral(" nodad") : QString());
    }
    commands += QStringLiteral("link set eth0 up");
    host.ip(commands);

    waitUntilRunning(host, QStringLiteral("eth0"), " state UP ");
    waitUntilRunning(m_bridge, port, "bridge_slave state forwarding");
    return host;
}
