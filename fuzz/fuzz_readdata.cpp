// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "devicemanagermodel.h"
#include "fuzzinput.h"
#include "fuzzsetup.h"
#include "modelmanagement.h"
#include "replyframes.h"
#include "scriptedunit.h"
#include "settingsbeside.h"
#include "signallog.h"
#include "unitframereader.h"

#include <QtCore/QRegularExpression>

using QuadrelUnit::UnitFrame;
using QuadrelUnit::UnitFrameReader;

namespace {

UnPackage& makeOperations()
{
    static int argc = 1;
    static char name[] = "fuzz_readdata";
    static char* argv[] = {name, nullptr};
    static QCoreApplication application(argc, argv);
    // No limit: every frame gets an answer of some kind, and none may be taken for late.
    writeSettingsBeside("[Communication]\ntimeout=-1\n");
    static UnPackage operations;
    return operations;
}

/**
 * The next reaction that the input names: mostly a sound reply with a payload out of the input.
 * After its end come sound replies full of 0, so that every read ends.
 */
ScriptedUnit::Reaction nextReaction(FuzzInput& input, const QByteArray& request)
{
    UnitFrameReader reader;
    reader.feed(request);
    const std::optional<UnitFrame> frame = reader.next();
    require(frame && frame->isReadRequest(), "a read sends sound read requests");

    const int asked = frame->dataLength;
    switch (input.byte()) {
    case 1:
        return ScriptedUnit::wake();
    case 2:
        return ScriptedUnit::failure(QString::fromUtf8(input.bytes(input.byte())));
    case 3:
        return ScriptedUnit::reply(input.bytes(input.word()));
    case 4:
        return ScriptedUnit::reply(replyFrame(frame->address, input.bytes(input.word()), asked));
    default:
        return ScriptedUnit::reply(
            replyFrame(frame->address, slotOf(input.bytes(asked), asked), asked));
    }
}

void checkRegistry()
{
    DeviceManagerModel* registry = DeviceManagerModel::Instance();
    const DeviceModel device = registry->getCurrentSelectDevice();
    ModelManagement* models = registry->getDeviceData(device);
    // The numbers of ports and lines have no limit: they end with the reply.
    require(models->getEventModel()->size() <= 128, "a unit has 128 events at most");
    const int triggers = models->getTriggerModel()->size() + models->getTriggerTimeModel()->size();
    require(triggers <= 2 * 64, "a unit has 64 triggers at most, and each kind walks over them");
    // The library keeps it by design; here it would be a leak.
    registry->deleteDeviceData(device);
    delete models;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static UnPackage& operations = makeOperations();
    operations.setConfigModel(SystemModel());
    operations.setDeviceModel(DeviceModel());

    SignalLog log(operations);
    FuzzInput input(data, size);
    ScriptedUnit unit(
        operations, [&input](const QByteArray& frame, int) { return nextReaction(input, frame); });
    operations.slot_runReadPackage(ReadDataType);
    unit.operationClosed();

    const int failures = log.entries.filter(QRegularExpression(QStringLiteral("^errored"))).size();
    const int successes =
        log.entries.filter(QRegularExpression(QStringLiteral("^readFinished"))).size();
    require(failures + successes == 1, "one closing signal");
    if (log.entries.contains(QStringLiteral("updateDeviced")))
        checkRegistry();
    return 0;
}
