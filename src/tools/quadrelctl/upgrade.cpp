#include "commands.h"
#include "console.h"
#include "imagefile.h"
#include "interrupts.h"
#include "session.h"
#include "tool.h"
#include "upgradeprogress.h"
#include "xmlfile.h"

#include <QtCore/QElapsedTimer>

namespace {

/** Between two attempts to reach a unit that restarts. */
constexpr int attemptPause = 500;
/** A unit that neither goes away nor changes its version in this time has restarted unseen. */
constexpr int unseenRestart = 5000;

void showDescriptor(const QString& path)
{
    QString module;
    QString version;
    QString error;
    if (!XmlFile::readUpdateConfigFile(path, module, version, error))
        throw CommandFailure{QStringLiteral("%1: %2").arg(path, error)};
    Console::print(Tool::tr("Upgrade of module %1 to version %2\n").arg(module, version));
    Console::flush();
}

QString readVersion(Session& session)
{
    return session.run(UnitRequest::readDevice()).device.getVersion();
}

void send(Session& session, const QByteArray& streamed, const QByteArray& addressed)
{
    UpgradeProgress progress;
    try {
        session.run(UnitRequest::upgrade(streamed, addressed),
            [&progress](const UnitProgress& step) { progress.show(step); });
    } catch (CommandFailure& failure) {
        Console::endProgress();
        failure.text += Tool::tr("\nThe unit may hold half an image. Run the upgrade again, "
                                 "without switching the unit off.");
        throw;
    }
}

/** The version that the unit reports once it is back. */
QString awaitReturn(Session& session, const QString& oldVersion)
{
    const int timeout = session.settings().upgradeTimeout;
    QElapsedTimer elapsed;
    elapsed.start();
    bool wasAway = false;
    while (elapsed.elapsed() < timeout) {
        Interrupts::pause(attemptPause);
        wasAway = wasAway || !session.isConnected();
        try {
            const QString version = readVersion(session);
            if (wasAway || version != oldVersion || elapsed.elapsed() > unseenRestart)
                return version;
        } catch (const CommandFailure& failure) {
            if (failure.code == Interrupted)
                throw;
            wasAway = true;
        }
    }
    throw CommandFailure{Tool::tr("both images were sent, but the unit has not come back within "
                                  "%1 ms (Upgrade/timeout in configWidget.ini)")
                             .arg(timeout)};
}

} // namespace

void runUpgrade(const UpgradeOptions& options)
{
    Console::outliveReader();
    const QByteArray streamed = loadImage(options.streamedFile);
    const QByteArray addressed = loadImage(options.addressedFile);
    if (!options.descriptorFile.isEmpty())
        showDescriptor(options.descriptorFile);

    Session session(options.unit);
    const QString oldVersion = readVersion(session);
    send(session, streamed, addressed);
    Console::note(Tool::tr("Reconnecting to the device"));
    const QString version = awaitReturn(session, oldVersion);
    Console::print(
        Tool::tr("The unit is back with version %1; it was %2.\n").arg(version, oldVersion));
}
