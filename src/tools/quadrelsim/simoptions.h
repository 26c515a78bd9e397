#pragma once

#include "unitdiscovery.h"
#include "unitfaults.h"
#include "unitsettings.h"

#include <QtCore/QString>
#include <QtNetwork/QHostAddress>

#include <functional>
#include <optional>
#include <vector>

/** What the command line asks for. */
struct SimOptions {
    QHostAddress address{QHostAddress::LocalHost};
    quint16 port = 3801;
    int resetTime = 1000;
    bool isVerbose = false;

    /** One for each option about the unit itself that was given. */
    std::vector<std::function<void(QuadrelUnit::UnitSettings&)>> settingChanges;
    bool hasSample = false;
    QString memoryPath;

    std::optional<QuadrelUnit::FourBytes> upgradeVersion;
    bool printsDigests = false;

    QuadrelUnit::UnitFaults faults;

    bool answersSearches = false;
    QHostAddress discoveryAddress{QHostAddress::AnyIPv4};
    quint16 discoveryPort = QuadrelUnit::UnitDiscovery::defaultPort;
    /** Without a payload of its own the reply tells port, serial number and version. */
    QuadrelUnit::DiscoveryReply discoveryReply;
    bool hasDiscoveryPayload = false;

    QuadrelUnit::UnitSettings changed(QuadrelUnit::UnitSettings settings) const;
};

/** The options; or nothing, when the program is to end with `exitCode`: help, or wrong usage. */
std::optional<SimOptions> parseOptions(int argc, char** argv, int* exitCode);
