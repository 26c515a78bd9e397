// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitdiscovery.h"
#include "unitfaults.h"
#include "unitlistener.h"
#include "unitmemory.h"
#include "unitsettings.h"

#include <QtCore/QString>
#include <QtNetwork/QHostAddress>

#include <functional>
#include <optional>
#include <vector>

/** A fault for some of the units, as the command line gives it. */
struct FaultOption {
    /** Counted from 1, both included. */
    int firstUnit;
    int lastUnit;
    /** As UnitFaults::add() takes it. */
    QString text;
};

/** What the command line asks for. */
struct SimOptions {
    /** Nothing unless it was asked for: then the program is a site, even of one unit. */
    std::optional<int> count;
    QHostAddress address{QHostAddress::LocalHost};
    quint16 port = 3801;
    int maximumConnections = QuadrelUnit::UnitListener::defaultConnections;
    /** Milliseconds. */
    int idleTime = QuadrelUnit::UnitListener::defaultIdleTime;
    int resetTime = 1000;
    int latency = 0;
    int jitter = 0;
    bool isVerbose = false;

    /** Changes the settings of the unit with this index. */
    using SettingChange = std::function<void(QuadrelUnit::UnitSettings&, int index)>;
    /** One for each option about the unit itself that was given. */
    std::vector<SettingChange> settingChanges;
    bool hasSample = false;
    /** A file; a folder for a site. */
    QString memoryPath;
    /** Bytes. */
    qint64 memoryLimit = QuadrelUnit::UnitMemory::defaultLimit;

    std::optional<QuadrelUnit::FourBytes> upgradeVersion;
    bool printsDigests = false;

    std::vector<FaultOption> faults;
    quint32 seed = 0;

    bool answersSearches = false;
    QHostAddress discoveryAddress{QHostAddress::AnyIPv4};
    quint16 discoveryPort = QuadrelUnit::UnitDiscovery::defaultPort;
    /** Without a payload of its own the reply gives port, serial number and version. */
    QuadrelUnit::DiscoveryReply discoveryReply;
    bool hasDiscoveryPayload = false;

    bool isSite() const { return count.has_value(); }
    int unitCount() const { return count.value_or(1); }

    // What is each unit's own; units are counted from 0 here.
    QuadrelUnit::UnitSettings settings(int index) const;
    QuadrelUnit::UnitSettings changed(QuadrelUnit::UnitSettings settings, int index) const;
    quint16 portOf(int index) const;
    QString memoryPathOf(int index) const;
    quint32 seedOf(int index) const { return seed + static_cast<quint32>(index); }
    QuadrelUnit::UnitFaults faultsOf(int index) const;
};

/** The options; or nothing, when the program is to end with `exitCode`: help, or wrong usage. */
std::optional<SimOptions> parseOptions(int argc, char** argv, int* exitCode);
