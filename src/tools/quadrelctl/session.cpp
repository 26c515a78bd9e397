#include "session.h"

#include "console.h"
#include "interrupts.h"
#include "tool.h"

namespace {

LinkOptions linkOptions(const Settings& settings)
{
    LinkOptions options;
    options.timeout = settings.communicationTimeout;
    return options;
}

} // namespace

Session::Session(const UnitAddress& address)
    : m_settings(Settings::load())
    , m_session(address, linkOptions(m_settings))
{
    Interrupts::watch();
    Interrupts::setSession(&m_session);
}

Session::~Session()
{
    Interrupts::setSession(nullptr);
}

UnitData Session::run(const UnitRequest& request, const UnitSession::ProgressHandler& progress)
{
    Interrupts::throwIfAny();
    const UnitResult result = m_session.run(request, progress);
    if (result)
        return result.data;
    Console::endProgress();
    Interrupts::throwIfAny();
    const QString hint = m_settings.communicationTimeout == 0
        ? Tool::tr("\n(Communication/timeout in configWidget.ini is 0: no unit can answer in that "
                   "time)")
        : QString();
    throw CommandFailure{result.failure.text + hint};
}

UnitData Session::readEverything()
{
    // Each step costs a wake of this thread.
    UnitSession::ProgressHandler show;
    if (Console::isTerminal())
        show = [](const UnitProgress& step) { Console::showProgress(step.text()); };
    const UnitData data = run(UnitRequest::readAll(), show);
    Console::endProgress();
    return data;
}
