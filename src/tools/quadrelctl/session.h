#pragma once

#include "settings.h"
#include "unitaddress.h"
#include "unpackage.h"

#include <QtCore/QEventLoop>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QThread>

#include <functional>
#include <memory>
#include <optional>

class UnitTransport;

/**
 * The library's operations on one unit, each as a call that returns when the operation is over.
 *
 * The operations run on a worker thread; the calls run the event loop of the main thread meanwhile,
 * so that progress is shown and an interrupt ends them. Each throws CommandFailure when it fails.
 */
class Session : public QObject {
    Q_OBJECT

public:
    explicit Session(const UnitAddress& address);
    ~Session() override;

    /** Where the inputs of operations are placed. */
    UnPackage& unit() { return *m_unit; }
    UnitTransport& transport() { return *m_transport; }
    const Settings& settings() const { return m_settings; }

    void run(DataPackageType type);
    /** Reads the unit's information block alone, and makes the unit the selected device. */
    void readDevice();
    /** Reads everything, as many ports and lines as the unit says it has. */
    void readEverything();
    void sendNetwork(
        const QString& oldIp, const QString& newIp, const QString& mask, const QString& gateway);

    /** The time that the last read or set of the clock reported. */
    QString clock() const { return m_clock; }

    /** Lets time pass. */
    void pause(int milliseconds);

signals:
    void runRequested(DataPackageType type);
    void networkRequested(QString oldIp, QString newIp, QString mask, QString gateway);
    /** A text of the library for a progress display. */
    void progressed(QString text);

private:
    void watchInterrupts();
    void await(const std::function<void()>& start);
    void finish(const std::optional<QString>& error = std::nullopt);
    void throwIfInterrupted() const;
    void forgetDevice();

    const Settings m_settings;
    UnPackage* const m_unit;
    QThread m_worker;
    std::unique_ptr<UnitTransport> m_transport;
    QEventLoop m_loop;
    bool m_interrupted = false;
    std::optional<QString> m_error;
    QString m_clock;
};
