// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "simoptions.h"
#include "unitmemoryfile.h"
#include "unitserver.h"

#include <QtCore/QObject>

#include <memory>

class Log;

/** One unit of this program, with all that the options hang on it. */
class SimulatedUnit : public QObject {
    Q_OBJECT

public:
    /** `index` counts the units from 0; `options` and `log` must outlive the unit. */
    SimulatedUnit(const SimOptions& options, int index, Log& log);

    /** False, with the reason in the log, if the unit cannot do its work. */
    bool start();
    /** Saves what is not saved yet. False if that fails. */
    bool stop();

    /** "ADDRESS:PORT" */
    QString endpoint() const;
    QString searchEndpoint() const;

private:
    bool openMemory();
    bool openDiscovery();
    void updateDiscoveryReply();
    void reportEvents();
    void reportTraffic();
    void printDigests();
    void report(const QString& text);
    /** What the unit reports because of what a client did. */
    void tellOfClient(const QString& text);
    bool fail(const QString& reason);

    const SimOptions& m_options;
    int m_index;
    Log& m_log;
    /** Names the unit in its messages, where there are several. */
    QString m_name;
    QuadrelUnit::ControlUnit m_unit;
    QuadrelUnit::UnitServer m_server;
    QuadrelUnit::UnitDiscovery m_discovery;
    std::unique_ptr<QuadrelUnit::UnitMemoryFile> m_memoryFile;
};
