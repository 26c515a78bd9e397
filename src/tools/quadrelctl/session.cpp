#include "session.h"

#include "console.h"
#include "devicemanagermodel.h"
#include "modelmanagement.h"
#include "tool.h"
#include "unittransport.h"

#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

#include <csignal>

#include <sys/eventfd.h>
#include <unistd.h>

namespace {

/** How an interrupt gets from the signal handler to the event loop. */
int interruptDescriptor = -1;

void handleInterrupt(int)
{
    const eventfd_t count = 1;
    [[maybe_unused]] const ssize_t written = write(interruptDescriptor, &count, sizeof(count));
}

} // namespace

Session::Session(const UnitAddress& address)
    : m_settings(Settings::load())
    , m_unit(UnPackage::Instance())
    , m_transport(std::make_unique<UnitTransport>(m_unit, address, m_settings.communicationTimeout))
{
    connect(this, &Session::runRequested, m_unit, &UnPackage::slot_runReadPackage,
        Qt::QueuedConnection);
    connect(this, &Session::networkRequested, m_unit, &UnPackage::slot_SendQuadrelNetWork,
        Qt::QueuedConnection);
    connect(
        m_unit, &UnPackage::signal_errored, this, [this](const QString& error) { finish(error); });
    connect(m_unit, &UnPackage::signal_readFinished, this, [this] { finish(); });
    connect(m_unit, &UnPackage::signal_finshed, this, [this] { finish(); });
    connect(m_unit, &UnPackage::signal_finshedUpgrade, this, [this] { finish(); });
    connect(m_unit, &UnPackage::signal_finshedUpdateRemark, this, [this] { finish(); });
    connect(m_unit, &UnPackage::signal_finishnetwork, this,
        [this](const QString& oldIp, const QString&, bool result) {
            const QString failure = m_transport->lastFailure();
            if (result)
                finish();
            else
                finish(failure.isEmpty() ? Tool::tr("%1 did not confirm its new address").arg(oldIp)
                                         : failure);
        });
    connect(
        m_unit, &UnPackage::signal_backread, this, [this](const QString& time) { m_clock = time; });
    connect(m_unit, &UnPackage::signal_updateProgress, this, &Session::progressed);
    watchInterrupts();
    m_unit->moveToThread(&m_worker);
    m_worker.start();
}

Session::~Session()
{
    m_transport->abort(Tool::tr("interrupted"));
    // The unit outlives its thread, and only that thread can give it away.
    QMetaObject::invokeMethod(
        m_unit, [this] { m_unit->moveToThread(thread()); }, Qt::BlockingQueuedConnection);
    m_worker.quit();
    m_worker.wait();
}

void Session::watchInterrupts()
{
    if (interruptDescriptor < 0)
        interruptDescriptor = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    auto* notifier = new QSocketNotifier(interruptDescriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        m_interrupted = true;
        m_transport->abort(Tool::tr("interrupted"));
        m_loop.quit();
    });

    struct sigaction action = {};
    action.sa_handler = handleInterrupt;
    // A second interrupt ends the program at once.
    action.sa_flags = SA_RESETHAND | SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

void Session::run(DataPackageType type)
{
    await([this, type] { emit runRequested(type); });
}

void Session::readDevice()
{
    forgetDevice();
    // A direct call does not clear the failure of an earlier operation; this does, and sends
    // nothing.
    run(ReservedType);
    await([this] {
        QMetaObject::invokeMethod(m_unit, [this] {
            QString error;
            const bool isRead = m_unit->readDeviceParameter(error);
            m_transport->finishOperation();
            QMetaObject::invokeMethod(this, [this, isRead, error] {
                finish(isRead ? std::nullopt : std::optional<QString>(error));
            });
        });
    });
}

void Session::readEverything()
{
    readDevice();
    DeviceModel device = DeviceManagerModel::Instance()->getCurrentSelectDevice();
    m_unit->setConfigNumber(device.getComNumber(), device.getIoNumber());
    forgetDevice();

    const QObject blocks;
    const auto show = [&blocks, this](auto signal, const QString& text) {
        connect(m_unit, signal, &blocks, [text] { Console::showProgress(text); });
    };
    show(&UnPackage::signal_updateDeviced, Tool::tr("device information read"));
    show(&UnPackage::signal_updateConfiged, Tool::tr("serial ports and IO lines read"));
    show(&UnPackage::signal_updateEvented, Tool::tr("events read"));
    show(&UnPackage::signal_updateTriggered, Tool::tr("triggers read"));
    show(&UnPackage::signal_updateTimeTriggered, Tool::tr("time triggers read"));
    run(ReadDataType);
    Console::endProgress();
}

/** Each read leaves the models of the one before it behind; nothing here needs them any more. */
void Session::forgetDevice()
{
    DeviceManagerModel* registry = DeviceManagerModel::Instance();
    const DeviceModel device = registry->getCurrentSelectDevice();
    const std::unique_ptr<ModelManagement> models(registry->getDeviceData(device));
    registry->deleteDeviceData(device);
}

void Session::sendNetwork(
    const QString& oldIp, const QString& newIp, const QString& mask, const QString& gateway)
{
    // The slot does not clear the failure of an earlier operation; this does, and sends nothing.
    run(ReservedType);
    await([&] { emit networkRequested(oldIp, newIp, mask, gateway); });
}

void Session::pause(int milliseconds)
{
    throwIfInterrupted();
    QTimer::singleShot(milliseconds, &m_loop, &QEventLoop::quit);
    m_loop.exec();
    throwIfInterrupted();
}

void Session::await(const std::function<void()>& start)
{
    throwIfInterrupted();
    m_error.reset();
    start();
    m_loop.exec();
    throwIfInterrupted();
    if (!m_error)
        return;
    const QString hint = m_settings.communicationTimeout == 0
        ? Tool::tr("\n(Communication/timeout in configWidget.ini is missing or 0: no unit can "
                   "answer in that time)")
        : QString();
    throw CommandFailure{*m_error + hint};
}

void Session::finish(const std::optional<QString>& error)
{
    m_error = error;
    m_loop.quit();
}

void Session::throwIfInterrupted() const
{
    if (m_interrupted)
        throw CommandFailure{Tool::tr("interrupted"), Interrupted};
}
