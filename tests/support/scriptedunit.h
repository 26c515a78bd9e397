// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unpackage.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QVector>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/**
 * Replaces transport and unit: answers each frame from a thread of its own, as `script` says,
 * in the careful way. The script runs on that thread and gets the frame and its number from 0.
 */
class ScriptedUnit {
public:
    struct Reaction {
        enum Kind { Reply, Failure, Wake, Silence };
        Kind kind = Reply;
        QByteArray reply;
        QString failure;
    };
    using Script = std::function<Reaction(const QByteArray& frame, int number)>;

    static Reaction reply(const QByteArray& frame) { return {Reaction::Reply, frame, QString()}; }
    static Reaction failure(const QString& text) { return {Reaction::Failure, QByteArray(), text}; }
    static Reaction wake() { return {Reaction::Wake, QByteArray(), QString()}; }
    static Reaction silence() { return {Reaction::Silence, QByteArray(), QString()}; }

    ScriptedUnit(UnPackage& operations, Script script);
    ~ScriptedUnit();
    ScriptedUnit(const ScriptedUnit&) = delete;
    ScriptedUnit& operator=(const ScriptedUnit&) = delete;

    /** Call when an operation has closed: nothing of it is repeated from then on. */
    void operationClosed();
    /** All frames so far, in the order of their sending. */
    QVector<QByteArray> frames();

private:
    void take(const QByteArray& frame);
    void run();
    void react(const Reaction& reaction);

    UnPackage& m_operations;
    Script m_script;
    QMetaObject::Connection m_connection;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    QVector<QByteArray> m_frames;
    int m_answered = 0;
    bool m_inFlight = false;
    bool m_stopping = false;
    std::thread m_thread;
};
