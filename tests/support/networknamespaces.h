// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "program.h"

#include <QtCore/QStringList>

#include <memory>
#include <vector>

/**
 * A device search broadcasts on every interface of its host, and never finds a unit on that host.
 * So tests search inside small networks of their own, made of Linux network namespaces.
 *
 * The namespaces have no names: only the descriptors of this process and the processes inside keep
 * them. The kernel removes them and their links when these are gone, however the test ended.
 */

/**
 * Takes the calling process off the machine's network, into an empty one where it may make further
 * namespaces; without the rights, tries the same in a user namespace. Must be called before the
 * process starts a thread.
 *
 * @return why it isn't possible here; empty if it worked
 */
QString enterPrivateNetwork();

/** A network namespace that has nothing but its loopback interface, which is up. */
class NetworkNamespace {
public:
    NetworkNamespace();
    ~NetworkNamespace();
    Q_DISABLE_COPY(NetworkNamespace)

    int descriptor() const { return m_descriptor; }

    /** Runs commands of `ip` inside, without the word "ip" before them. A failure ends the test. */
    void ip(const QStringList& commands) const;

private:
    int m_descriptor;
};

/**
 * Puts the calling thread into a namespace until the end of the scope. A socket belongs to the
 * namespace that it was made in, and stays there.
 */
class InsideNamespace {
public:
    explicit InsideNamespace(const NetworkNamespace& network);
    ~InsideNamespace();
    Q_DISABLE_COPY(InsideNamespace)

private:
    int m_formerDescriptor;
};

/** A program that runs inside a namespace, and dies with the thread that started it. */
class NamespaceProcess : public Program {
public:
    explicit NamespaceProcess(const NetworkNamespace& network, QObject* parent = nullptr);

protected:
    void setupChildProcess() override;

private:
    int m_descriptor;
};

/** Hosts that are joined by one bridge, each in a namespace of its own. */
class TestNetwork {
public:
    TestNetwork();

    /**
     * Adds a host with one interface, "eth0", that is joined to all others when this returns.
     *
     * @param addresses with their prefix length, as "192.168.1.1/24"; there are no others
     */
    const NetworkNamespace& addHost(const QStringList& addresses);

private:
    NetworkNamespace m_bridge;
    std::vector<std::unique_ptr<NetworkNamespace>> m_hosts;
};
