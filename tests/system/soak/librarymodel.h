// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "devicemanagermodel.h"
#include "faultytransport.h"
#include "modelmanagement.h"
#include "soakrun.h"
#include "unitmodel.h"

#include <QtCore/QStringList>

#include <functional>
#include <memory>
#include <vector>

/**
 * What the library must do, step by step, described again from the outside: it goes through the
 * exchanges that an operation has made, expects each frame, and takes from what reached the library
 * how the step must have ended. Blocks are made and read by the library's codecs, which have tests
 * of their own.
 */
class LibraryModel {
public:
    explicit LibraryModel(const QuadrelUnit::UnitMemory& delivered);

    // The inputs, as they are placed on the library.
    int comNumber = 9;
    int ioNumber = 12;
    SystemModel config;
    EventModel events;
    TriggerModel triggers;
    TriggerTimeModel timeTriggers;
    bool retainIp = true;
    QString clock;
    void setUpgrade(const QByteArray& first, const QByteArray& second, const QString& name);
    void setDevice(const DeviceModel& device) { m_device = device; }
    void setReply(const QByteArray& reply) { m_buffer = reply; }
    void setError(const QString& error);

    // The operations, each on the exchanges that the library made.
    void dispatch(DataPackageType type, const QVector<Exchange>& exchanges);
    void setNetwork(const QString& oldIp, const QString& newIp, const QString& subnet,
        const QString& gateway, const QVector<Exchange>& exchanges);
    using Operation = bool (LibraryModel::*)(QString& error);
    bool callDirectly(Operation operation, QString& error, const QVector<Exchange>& exchanges);

    bool readDevice(QString& error);
    bool sendConfig(QString& error);
    bool readConfig(QString& error);
    bool sendEvents(QString& error);
    bool readEvents(QString& error);
    bool sendTriggers(QString& error);
    bool readTriggers(QString& error);
    bool readTimeTriggers(QString& error);
    bool readAll(QString& error);
    bool readClock(QString& error);
    bool sendClock(QString& error);
    bool sendReset(QString& error);
    bool upgrade(QString& error);
    bool updateRemark(QString& error);

    /** The signals of the last operation, in the form of SignalLog. */
    const QStringList& signalEntries() const { return m_signals; }
    DeviceManagerModel& registry() { return m_registry; }
    /** The aggregates that the model's registry was given; it makes others for whoever asks. */
    bool owns(const ModelManagement* models) const;
    const UnitModel& unit() const { return m_unit; }

private:
    void begin(const QVector<Exchange>& exchanges);
    void finish();
    bool run(DataPackageType type, QString& error);
    QString closingSignal(DataPackageType type, const QString& selected);
    const Exchange& nextExchange(const QByteArray& frame);
    bool wait(const Exchange& exchange, const QString& label, QString& error);
    bool read(quint32 address, int length, const QString& label, QString& error);
    bool write(quint32 address, const QByteArray& data, const QString& label, QString& error);
    const Exchange& sendWrite(quint32 address, const QByteArray& data);
    bool writeRecords(quint32 address, const QList<QByteArray>& records, QString& error);
    using ParseCount = std::function<bool(int& count, QString& error)>;
    using ParseRecord = std::function<bool(quint32 address, QString& error)>;
    bool readRecords(quint32 countAddress, int maximum, const QString& label, QString& error,
        const ParseCount& parseCount, const ParseRecord& parseRecord);
    void store(const std::function<void(ModelManagement&)>& change, const char* signal);
    ModelManagement* newModels();

    UnitModel m_unit;
    DeviceManagerModel m_registry;
    std::vector<std::unique_ptr<ModelManagement>> m_models;
    DeviceModel m_device;
    QByteArray m_streamed;
    QByteArray m_addressed;
    QByteArray m_remark;
    QString m_upgradeName;
    QByteArray m_buffer;
    bool m_hasError = false;
    QString m_errorText;
    int m_label = 0;
    QVector<Exchange> m_exchanges;
    int m_next = 0;
    QStringList m_signals;
};
