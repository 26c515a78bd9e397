#pragma once

#include "simoptions.h"
#include "unitmemoryfile.h"
#include "unitserver.h"

#include <QtCore/QObject>

#include <memory>

/** The unit of this program, with all that the options hang on it. */
class Simulator : public QObject {
    Q_OBJECT

public:
    explicit Simulator(const SimOptions& options);

    /** False, with the reason on standard error, if the unit cannot do its work. */
    bool start();
    /** Saves what is not saved yet. False if that fails. */
    bool stop();

private:
    bool openMemory();
    bool openDiscovery();
    void updateDiscoveryReply();
    void reportEvents();
    void printDigests();

    SimOptions m_options;
    QuadrelUnit::ControlUnit m_unit;
    QuadrelUnit::UnitServer m_server;
    QuadrelUnit::UnitDiscovery m_discovery;
    std::unique_ptr<QuadrelUnit::UnitMemoryFile> m_memoryFile;
};
