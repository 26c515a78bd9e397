#pragma once

#include "controlunit.h"
#include "unitserver.h"

#include <QtCore/QThread>

#include <memory>
#include <thread>

/** A simulated unit with full tables on a port of the loopback, with a thread of its own. */
class LoopbackUnit {
public:
    LoopbackUnit();
    ~LoopbackUnit();
    LoopbackUnit(const LoopbackUnit&) = delete;
    LoopbackUnit& operator=(const LoopbackUnit&) = delete;

    quint16 port() const { return m_port; }

private:
    QThread m_thread;
    QObject m_context;
    std::unique_ptr<QuadrelUnit::ControlUnit> m_unit;
    std::unique_ptr<QuadrelUnit::UnitServer> m_server;
    quint16 m_port = 0;
};

/** Two blocking sockets and nothing else: a request goes there, a reply comes back. */
class RawEcho {
public:
    RawEcho(int requestSize, int replySize);
    ~RawEcho();
    RawEcho(const RawEcho&) = delete;
    RawEcho& operator=(const RawEcho&) = delete;

    void exchange();

private:
    void answer(int listener);

    QByteArray m_request;
    QByteArray m_reply;
    int m_socket;
    std::thread m_answering;
};
