#pragma once

#include <QtCore/QMutex>
#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtNetwork/QTcpSocket>

class UnPackage;

/**
 * Carries the frames of an UnPackage to a unit over TCP, and the replies back.
 *
 * The link lives on a thread with an event loop, and the UnPackage on another one.
 */
class UnitLink : public QObject {
    Q_OBJECT

public:
    UnitLink(UnPackage* operations, const QString& host, quint16 port);

private:
    void beginExchange(const QByteArray& frame);
    void endOperation();
    void send(const QByteArray& frame);
    void receive();
    void deliver(const QByteArray& reply);
    void fail(const QString& reason);
    void keepWaking();
    void wakeAgain();

    enum State { Idle, Sent, Answered };

    UnPackage* m_operations;
    QString m_host;
    quint16 m_port;
    QTcpSocket m_socket;
    QByteArray m_received;
    QTimer m_wakes;
    QMutex m_mutex; // guards m_state, and each wake
    State m_state = Idle;
};
