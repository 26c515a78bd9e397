// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitaccess.h"

#include "console.h"
#include "interrupts.h"
#include "preferences.h"
#include "tool.h"

using namespace QuadrelDocument;
using namespace QuadrelWorkspace;

namespace {

WorkOptions workOptions()
{
    WorkOptions options;
    options.link = Preferences::link();
    options.serialNumber = Preferences::options().expectedSerial;
    options.modelId = Preferences::options().expectedModel;
    return options;
}

void showStep(const WorkProgress& progress)
{
    Console::showProgress(progress.text());
}

WorkResult checked(WorkResult result)
{
    Console::endProgress();
    throwFailure(result.failure);
    return result;
}

} // namespace

void throwFailure(WorkFailure failure)
{
    if (!failure)
        return;
    if (Interrupts::arePending())
        failure.reason = Tool::tr("interrupted");
    else if (Preferences::timeout() == 0)
        failure.advice = Tool::tr("Communication/timeout in configWidget.ini is 0, and no unit can "
                                  "answer in that time");
    throw CommandFailure{failure.text(), Interrupts::arePending() ? Interrupted : Failed};
}

UnitAccess::UnitAccess(const UnitAddress& address)
    : m_work(address, workOptions())
{
    Interrupts::watch(&m_work);
}

UnitAccess::~UnitAccess()
{
    Interrupts::watch(nullptr);
}

Device UnitAccess::readDevice()
{
    return *checked(m_work.readDevice()).contents.device;
}

Contents UnitAccess::read()
{
    return checked(m_work.read(showStep)).contents;
}

WorkResult UnitAccess::apply(const Plan& plan, const QString& change)
{
    WorkResult result = m_work.apply(plan, change, showStep);
    Console::endProgress();
    return result;
}

WorkResult UnitAccess::run(const UnitRequest& request, const QString& state)
{
    WorkResult result = m_work.run(request, showStep);
    if (result.failure && result.failure.state.isEmpty())
        result.failure.state = state;
    return checked(result);
}

Device UnitAccess::upgrade(const UpgradeImages& images, const UnitWork::ProgressHandler& progress)
{
    return *checked(m_work.upgrade(images, Preferences::upgradeTimeout(), progress))
                .contents.device;
}
