// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "operationrunner.h"

#include "devicemanagermodel.h"
#include "modelmanagement.h"
#include "requestinputs.h"
#include "unpackageaccess.h"

#include <arpa/inet.h>

namespace {

bool isIpv4(const QString& text)
{
    in_addr address = {};
    return inet_pton(AF_INET, text.toLatin1().constData(), &address) == 1;
}

qint64 totalOf(EventModel events)
{
    return events.size();
}

qint64 totalOf(TriggerModel triggers, TriggerTimeModel timeTriggers)
{
    return triggers.size() + timeTriggers.size();
}

} // namespace

OperationRunner::OperationRunner(
    const UnitAddress& address, const LinkOptions& options, ProgressHandler progress)
    : m_progress(std::move(progress))
    , m_transport(m_unPackage, address, options,
          [this](const Exchange& exchange, const QuadrelFrame::FrameView& reply) {
              if (const auto step = m_tracker.follow(exchange, reply))
                  m_progress(*step);
          })
    , m_binding(m_unPackage, m_transport)
{
    UnPackageAccess::setUnlimitedWait(m_unPackage);
    const auto handleDirectly = [this](auto signal, auto handler) {
        QObject::connect(&m_unPackage, signal, &m_unPackage, handler, Qt::DirectConnection);
    };
    handleDirectly(&UnPackage::signal_errored, [this](const QString& error) {
        m_error = error;
        m_hasFailed = true;
    });
    handleDirectly(&UnPackage::signal_backread, [this](const QString& clock) { m_clock = clock; });
}

UnitResult OperationRunner::run(const UnitRequest& request)
{
    UnitResult result;
    result.failure = faultOf(request);
    if (result.failure)
        return result;

    // One for each operation, so that it holds this unit and nothing else.
    DeviceManagerModel registry;
    m_binding.setRegistry(&registry);
    placeInputs(*request.m_inputs);
    m_clock.clear();
    result.failure = operate(request, registry);
    m_binding.setRegistry(nullptr);

    const DeviceModel device = registry.getCurrentSelectDevice();
    const std::unique_ptr<ModelManagement> models(registry.getDeviceData(device));
    const bool isRead =
        request.kind() == UnitRequest::ReadDevice || request.kind() == UnitRequest::ReadAll;
    if (isRead)
        result.data = {device, *models->getConfigModel(), *models->getEventModel(),
            *models->getTriggerModel(), *models->getTriggerTimeModel(), QString()};
    result.data.clock = m_clock;
    return result;
}

/** Of inputs that no unit can take. */
LinkFailure OperationRunner::faultOf(const UnitRequest& request)
{
    const Inputs& inputs = *request.m_inputs;
    if (request.kind() == UnitRequest::SetClock) {
        const int year = inputs.time.date().year();
        if (!inputs.time.isValid() || year < 2000 || year > 2099)
            return {LinkError::InvalidRequest, tr("a unit's clock runs from 2000 to 2099")};
    }
    if (request.kind() == UnitRequest::SetNetwork) {
        for (const QString& text : {inputs.ip, inputs.mask, inputs.gateway}) {
            if (!isIpv4(text))
                return {LinkError::InvalidRequest, tr("\"%1\" is not an IPv4 address").arg(text)};
        }
    }
    return {};
}

/** All of them: what an earlier operation has left is gone with it. */
void OperationRunner::placeInputs(const Inputs& inputs)
{
    m_unPackage.setDeviceModel(DeviceModel());
    m_unPackage.setConfigModel(inputs.config);
    m_unPackage.setEventModel(inputs.events);
    m_unPackage.setTriggerModel(inputs.triggers);
    m_unPackage.setTimeTriggerModel(inputs.timeTriggers);
    m_unPackage.setTimingCheck(inputs.time.toString(QStringLiteral("yyyy/MM/dd  hh:mm:ss")));
    m_unPackage.setRetainIP(inputs.keepsAddress);
    m_unPackage.setUpgradePackage(inputs.streamed, inputs.addressed, QString());
}

LinkFailure OperationRunner::operate(const UnitRequest& request, DeviceManagerModel& registry)
{
    const Inputs& inputs = *request.m_inputs;
    m_tracker = ProgressTracker();
    switch (request.kind()) {
    case UnitRequest::ReadDevice:
        return call([this](QString& error) { return m_unPackage.readDeviceParameter(error); });
    case UnitRequest::ReadAll:
        return call([&](QString& error) { return readEverything(registry, error); });
    case UnitRequest::WriteConfig:
        return dispatch(SendConfigType);
    case UnitRequest::WriteEvents:
        m_tracker = ProgressTracker(totalOf(inputs.events));
        return dispatch(SendEventType);
    case UnitRequest::WriteTriggers:
        m_tracker = ProgressTracker(totalOf(inputs.triggers, inputs.timeTriggers));
        return dispatch(SendTriggerType);
    case UnitRequest::ReadClock:
        return dispatch(BackwordReadType);
    case UnitRequest::SetClock:
        return dispatch(BackwordWriteType);
    case UnitRequest::SetNetwork:
        return call([&](QString&) {
            return m_unPackage.sendNetWork(inputs.ip, inputs.mask, inputs.gateway);
        });
    case UnitRequest::Reset:
        return inputs.keepsAddress ? dispatch(SendResetType) : resetToDefault();
    case UnitRequest::Upgrade:
        m_tracker = ProgressTracker(inputs.streamed.size() + inputs.addressed.size());
        return dispatch(UpgradeDeviceType);
    case UnitRequest::WriteRemark:
        return dispatch(UpdateRemarkType);
    }
    return {};
}

LinkFailure OperationRunner::dispatch(DataPackageType type)
{
    m_hasFailed = false;
    m_unPackage.slot_runReadPackage(type);
    return m_hasFailed ? failure(m_error) : LinkFailure();
}

/** For the library's operations that end in no closing signal. */
LinkFailure OperationRunner::call(const std::function<bool(QString&)>& operation)
{
    // Sends nothing, and clears the failure of an earlier operation.
    dispatch(ReservedType);
    QString error;
    const bool isDone = operation(error);
    m_transport.finishOperation();
    return isDone ? LinkFailure() : failure(error);
}

/** As UnPackage::readData(), but with as many ports and lines as the unit has reported. */
bool OperationRunner::readEverything(DeviceManagerModel& registry, QString& error)
{
    if (!m_unPackage.readDeviceParameter(error))
        return false;
    DeviceModel device = registry.getCurrentSelectDevice();
    m_unPackage.setConfigNumber(device.getComNumber(), device.getIoNumber());
    return m_unPackage.readConfigParameter(error) && m_unPackage.readEventParameter(error)
        && m_unPackage.readTriggerParameter(error) && m_unPackage.readTimeTriggerParameter(error)
        && m_unPackage.backwordread(error);
}

/** The library does not await the unit here, which may be gone before it can answer. */
LinkFailure OperationRunner::resetToDefault()
{
    dispatch(SendResetType);
    if (m_transport.awaitLastReply())
        return {};
    const LinkFailure last = m_transport.lastFailure();
    return m_transport.wasSent() && last.error != LinkError::Cancelled ? LinkFailure() : last;
}

/** The library passes the transport's failures on, and has its own for contents. */
LinkFailure OperationRunner::failure(const QString& libraryText) const
{
    const LinkFailure last = m_transport.lastFailure();
    return last ? last : LinkFailure{LinkError::BadContents, libraryText};
}
