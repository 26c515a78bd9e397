// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal; not installed.
#pragma once

#include "progresstracker.h"
#include "transportbinding.h"
#include "transportcore.h"
#include "unitrequest.h"
#include "unitsession.h"
#include "unpackage.h"

#include <functional>

class DeviceManagerModel;

/** Runs requests on an UnPackage of its own. run() blocks its thread until the operation is over.
 */
class OperationRunner {
    Q_DECLARE_TR_FUNCTIONS(UnitSession)

public:
    /** `progress` is called on the thread of run(). */
    using ProgressHandler = std::function<void(const UnitProgress&)>;

    /** Throws std::system_error if there is no free descriptor. */
    OperationRunner(
        const UnitAddress& address, const LinkOptions& options, ProgressHandler progress);

    UnitResult run(const UnitRequest& request);
    TransportCore& transport() { return m_transport; }

private:
    using Inputs = UnitRequest::Inputs;

    static LinkFailure faultOf(const UnitRequest& request);
    void placeInputs(const Inputs& inputs);
    LinkFailure operate(const UnitRequest& request, DeviceManagerModel& registry);
    LinkFailure dispatch(DataPackageType type);
    LinkFailure call(const std::function<bool(QString&)>& operation);
    bool readEverything(DeviceManagerModel& registry, QString& error);
    LinkFailure resetToDefault();
    LinkFailure failure(const QString& libraryText) const;

    const ProgressHandler m_progress;
    ProgressTracker m_tracker;
    UnPackage m_unPackage;
    TransportCore m_transport;
    TransportBinding m_binding;
    /** What the library has reported in the operation at hand. */
    QString m_error;
    bool m_hasFailed = false;
    QString m_clock;
};
