// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "quadrelbll_global.h"

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QVector>

class QTimer;
class QUdpSocket;

#pragma pack(push, 1)

/**
 * One control unit that answered a search.
 *
 * The fields follow each other without gaps, so a record has 37 bytes where a pointer has 8. Some
 * of them are therefore not aligned: read and assign them as usual, but take no pointer or
 * reference to a field that outlives the expression.
 */
struct serverData {
    /** Address of the unit as text; also the record's key in the map of a search. */
    QString ip;
    /** Model name: "Zorbe3100" from a plain search, empty from a search for an upgrade. */
    QString name;
    /** UDP port that the reply came from. */
    quint16 port = 1025;
    /** When the first reply from this address was taken: milliseconds since the Unix epoch. */
    qint64 lastSeen = 0;
    /** The reply up to its first zero byte, which is left out. The
     * application interprets it. */
    QByteArray data;
    /** Free for the application; the library neither sets nor reads it. */
    quint8 spare1 = 0;
    /** Free for the application; the library neither sets nor reads it. */
    quint8 spare2 = 0;
    /** Free for the application; the library neither sets nor reads it. */
    quint8 spare3 = 0;
};

#pragma pack(pop)

/**
 * Finds control units on the local network by UDP broadcast.
 *
 * @code
 * SearchDevice search; // after the application object: the settings are beside the program
 * QObject::connect(&search, &SearchDevice::signal_updateDeviceList, receiver,
 *     [](const QMap<QString, serverData>& units) { show(units.keys()); });
 * search.searchDevice(); // needs the event loop of its thread
 * @endcode
 *
 * A search opens one socket on port 3800 for each address of this host but 127.0.0.1 and ::1,
 * broadcasts the six bytes "Zorbe:" to 255.255.255.255:3800, gathers the replies in a map keyed by
 * the sender's address text, and reports the whole map once, in signal_updateDeviceList().
 *
 * - searchDevice(), the plain search, looks for the one known model: it broadcasts once and takes
 *   replies that hold "Zorbe:3100".
 * - slot_searchDevice(), the search during a firmware upgrade, waits for a unit to come back: it
 *   broadcasts every 2000 ms and takes any reply that holds "Zorbe:".
 *
 * The first reply from an address is kept, later ones are ignored. A reply from an address of this
 * host is dropped, since the host hears its own broadcast; a unit on the same host is never found.
 *
 * How long a search lasts is read once, in the constructor, from "configWidget.ini" beside the
 * application: the keys "Search/timeout" (plain search) and "Upgrade/timeout" (search during an
 * upgrade), in milliseconds. A key that is missing or no number gives 0, and a search of 0 ms or
 * less ends at the next turn of the event loop.
 *
 * No error is ever reported: whatever fails, the search ends with fewer records or none.
 *
 * Not thread-safe. Use an object from the thread that it lives in, with an application object in
 * place and that thread's event loop running. The singleton lives in the thread that loaded the
 * library. A broadcast blocks the thread for up to 10 ms for each socket.
 */
class QUADRELBLL_EXPORT SearchDevice : public QObject {
    Q_OBJECT

public:
    /**
     * Makes an object with its own settings, sockets and map, apart from the singleton. Reads the
     * settings file; starts nothing.
     *
     * @param parent owner of the object, or nullptr
     */
    explicit SearchDevice(QObject* parent = nullptr);

    /** Leaves open the sockets of the last search; call deleteUdpObject() before to close them. */
    ~SearchDevice() override;

    /**
     * The singleton, made while the library is loaded and never deleted. If the library is loaded
     * before there is an application object, its settings come from "/configWidget.ini".
     */
    static SearchDevice* Instance();

    /**
     * Starts a plain search of "Search/timeout" milliseconds: forgets all units, replaces the
     * sockets and broadcasts once before it returns. While the broadcasts of slot_searchDevice()
     * still go on, it leaves the sending to them.
     *
     * Searches may overlap. Each one ends in its own stopSearchDevice(), which can't be
     * cancelled: an earlier search that ends stops the broadcasts and reports what has come in
     * so far, and the later one reports again.
     */
    void searchDevice();

    /**
     * Stops the repeated broadcasts and emits signal_updateDeviceList(). Called at the end of each
     * search; a call by hand reports early, and the pending end of the search reports once more.
     *
     * The sockets stay open and the map stays as it is: a late reply is still entered, and is seen
     * only by another call of this function before the next search.
     */
    void stopSearchDevice();

    /** Deletes all sockets at once. Replies are no longer heard until the next search. */
    void deleteUdpObject();

    /**
     * Adds a record with this address and port, and defaults in all other fields, unless there is a
     * record for the address already.
     *
     * @param ip address text, the key of the record
     * @param port UDP port of the unit
     */
    void AddServer(const QString& ip, unsigned short port);

Q_SIGNALS:
    /**
     * The result of a search.
     *
     * The first argument is a copy of the map of units found, in ascending order of the address
     * text (192.168.1.10 comes before 192.168.1.9). The second is the argument of
     * slot_searchDevice(), unchanged, or the empty string after searchDevice().
     *
     * A receiver with a queued connection has to register the type first, since the library does
     * not: `qRegisterMetaType<QMap<QString, serverData>>("QMap<QString,serverData>")`, with
     * `Q_DECLARE_METATYPE(serverData)` in the application.
     */
    void signal_updateDeviceList(QMap<QString, serverData>, QString);

public Q_SLOTS:
    /**
     * Broadcasts once from each socket of the current search and waits up to 10 ms on each for a
     * reply. Does nothing without sockets.
     */
    void slot_timeout();

    /**
     * Starts a search of "Upgrade/timeout" milliseconds for a unit that comes back from a firmware
     * upgrade. Like searchDevice(), but it takes a reply of any model, leaves the name of the
     * records empty, and broadcasts every 2000 ms. The first broadcast leaves 2000 ms after the
     * call, so a shorter "Upgrade/timeout" ends the search before anything is sent.
     *
     * @param connectDevcie handed back with the result, so that the caller knows what it waited for
     */
    void slot_searchDevice(QString connectDevcie);

private:
    void openSockets(const QByteArray& tag, const QString& modelName);
    void takeReply(QUdpSocket* socket, const QByteArray& tag, const QString& modelName);
    void stopAfter(int milliseconds);

    static SearchDevice* m_searchDeviceInstance;

    QVector<QUdpSocket*> m_udpSockets;
    QMap<QString, serverData> m_serverMap;
    QTimer* m_repeatTimer;
    int m_searchTimeout = 0;
    int m_upgradeTimeout = 0;
    QString m_connectDevcie;
};
