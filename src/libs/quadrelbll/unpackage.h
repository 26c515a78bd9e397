// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "devicemodel.h"
#include "eventmodel.h"
#include "quadrelbll_global.h"
#include "systemmodel.h"
#include "triggermodel.h"
#include "triggertimemodel.h"

#include <QtCore/QByteArray>
#include <QtCore/QMetaType>
#include <QtCore/QMutex>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QWaitCondition>

struct UnPackageLink;

/**
 * What UnPackage::slot_runReadPackage runs, and the signal that closes it on success. Any other
 * 32-bit value is allowed too, and runs as little as ReservedType.
 */
enum DataPackageType : int {
    SendConfigType = 0,      ///< UnPackage::sendConfig, then `signal_finshed`
    SendEventType = 1,       ///< UnPackage::sendEvent, then `signal_finshed`
    SendTriggerType = 2,     ///< UnPackage::sendTrigger, then `signal_finshed`
    SendTimeTriggerType = 3, ///< UnPackage::sendTrigger as well, then `signal_finshed`
    ReadDataType = 4,        ///< UnPackage::readData on emptied lists, then `signal_readFinished`
    ReservedType = 5,        ///< nothing, then `signal_finshed`
    SendResetType = 6,       ///< UnPackage::sendReset, then `signal_finshed`
    UpgradeDeviceType = 7,   ///< UnPackage::upgradeDevcie, then `signal_finshedUpgrade`
    UpdateRemarkType = 8,    ///< UnPackage::updateRemark, then `signal_finshedUpdateRemark`
    BackwordReadType = 9,    ///< UnPackage::backwordread, then `signal_finshed`
    BackwordWriteType = 10   ///< UnPackage::backwordwrite, then `signal_finshed`
};
Q_DECLARE_METATYPE(DataPackageType)

/**
 * Runs every operation on a unit, as a straight sequence of exchanges: `signal_sendPackage` carries
 * a frame, and the thread of the operation sleeps until the reply is handed in.
 *
 * @code
 * UnPackage operations; // after the application object: the settings are beside the program
 * UnitTransport transport(&operations, address); // or a transport of your own
 * operations.moveToThread(&worker);
 * QObject::connect(&operations, &UnPackage::signal_readFinished, receiver, whenRead);
 * QObject::connect(&operations, &UnPackage::signal_errored, receiver, whenFailed);
 * QMetaObject::invokeMethod(
 *     &operations, [&operations] { operations.slot_runReadPackage(ReadDataType); });
 * @endcode
 *
 * **Use.** Place the inputs with the setters, start the operation with one of the two slots, hand
 * in replies with setRecvPackage() or failures with setError(), and wait for the closing signal:
 * `signal_errored` after any failure, else the one that DataPackageType names. The first exchange
 * that fails ends an operation. Nothing is retried, and nothing is rolled back: what was written to
 * the unit stays written, and what earlier steps stored in the registry stays stored.
 *
 * **Threads.** The slots block their thread for up to the wait time at each exchange. Run the
 * object on a worker thread, reach its slots through queued connections, and call setRecvPackage(),
 * setError() and quitWaitDelay() from another thread. While an operation runs, call nothing else.
 * One operation runs at a time; nothing refuses a second one.
 *
 * Every signal comes on the thread that runs the operation. Connect `signal_sendPackage` directly
 * (Qt::DirectConnection): a receiver of the object's own thread would get a queued one only after
 * the operation, which sleeps there meanwhile. The others may be queued; they are emitted before
 * the slot returns.
 *
 * The reply buffer has no lock: the order of events alone protects it. Hand in one reply for each
 * frame, and none after the exchange has timed out. A second or late one may be written while the
 * operation reads the buffer, which is a data race.
 *
 * **The wait** has no predicate. Any wake counts as a reply, and a reply that is handed in before
 * the operation sleeps wakes nobody: the exchange then times out. See setRecvPackage().
 *
 * **Settings.** "Communication/timeout" of `configWidget.ini` beside the application is the wait
 * time of one exchange in milliseconds, read once by the constructor: 0 if it is absent, so that
 * each exchange times out at once, and -1 for no limit. The singleton is made while the library is
 * loaded; without an application object at that time the file is sought at "/configWidget.ini".
 *
 * **Failures.** Every operation but sendNetWork() returns false and puts the reason into its
 * `error`. All texts of the library pass through tr() in the context of the class that raises them.
 *
 * - No reply within the wait time: the label of the operation, followed by "超时！". The labels are
 *   listed with the operations.
 * - setError() woke the wait: the text that was given to it.
 * - The reply does not answer the request: "数据包长度小于最小数据包长度！" if it is too short,
 *   "请求数据类型与返回数据类型不一致！" for another address,
 *   "数据包长度与实际的数据包长度不一致！" for another length, and
 *   "数据包长度与请求数据长度不一致！" for another length of the serial or IO block.
 * - The block is inconsistent: "数据包不完整！", "有效数据长度超出范围！",
 *   "触发数据超出最大范围，最多为316个字节！",
 *   "触发事件个数已超出最大个数，最大为128个事件！" or "描述信息数长度有误！".
 *
 * Replies to writes are not checked: only their arrival confirms the write.
 */
class QUADRELBLL_EXPORT UnPackage : public QObject {
    Q_OBJECT

public:
    /** Another object than the singleton; reads the settings file. */
    explicit UnPackage(QObject* parent = nullptr);

    /** The object that was made when the library was loaded. It lives until the process ends. */
    static UnPackage* Instance();

    /**
     * How many serial ports and IO lines the next read of the configuration asks for, 7 and 2 bytes
     * each. 9 and 12 unless set otherwise; not checked. The data length of a reply has 16 bits, so
     * that none can answer a read of more than 65,535 bytes, which is 9,362 ports or 32,767 lines:
     * it fails with "数据包长度与请求数据长度不一致！". Writes send what the model holds instead.
     */
    void setConfigNumber(int comNumber, int ioNumber);
    /** Places the events that sendEvent() writes. readEventParameter() appends to the same copy. */
    void setEventModel(EventModel model);
    /** Places the serial and IO triggers that sendTrigger() writes. */
    void setTriggerModel(TriggerModel model);
    /** Places the time triggers that sendTrigger() writes after the others. */
    void setTimeTriggerModel(TriggerTimeModel model);
    /** Places the serial and IO settings that sendConfig() writes. */
    void setConfigModel(SystemModel model);
    /** Places the record that the next read of a device's information fills. */
    void setDeviceModel(DeviceModel model);
    /** Whether sendReset() lets the unit keep its address; true unless set otherwise. */
    void setRetainIP(bool retain);
    /**
     * Places the time that backwordwrite() sends: four-digit year, "/", month, "/", day, two
     * blanks, hour, ":", minute, ":", second. Not checked.
     */
    void setTimingCheck(QString time);
    /**
     * Places an upgrade. `first` is the streamed image, whose first 90 bytes are also the remark;
     * past its end the remark is filled with 0. `second` is the addressed image. `name` comes back
     * with `signal_finshedUpgrade`. A run consumes both images as it sends them: one that fails
     * leaves the rest: place both again before the next run.
     */
    void setUpgradePackage(QByteArray first, QByteArray second, QString name);

    /** The next frame label: 0 to 254, then 0 again. Each request takes one. */
    unsigned char getLabels();
    /** Emits `signal_sendPackage(package)`. */
    void sendPackage(QByteArray package);
    /**
     * Sleeps until the frame just sent is answered or the wait time has run out. True leaves
     * `error` as it was. False puts `label` and "超时！" into it if no one woke the wait, whether
     * or not a failure is set, and else the text given to setError().
     */
    bool waitResponsed(QString label, QString& error);

    /**
     * Hands in the reply of the frame in flight, whole, and wakes the operation. A reply that comes
     * before the operation sleeps lies in the buffer and wakes nobody: a careful transport
     * therefore repeats quitWaitDelay() until the next frame or the closing signal has come.
     */
    void setRecvPackage(QByteArray package);
    /**
     * Hands in a failure of the transport and wakes the operation, which ends with this text. The
     * failure stays set until the next slot_runReadPackage(), and fails the next wait that is
     * woken.
     */
    void setError(QString error);
    /** Wakes the operation with whatever reply lies in the buffer. */
    void quitWaitDelay();

    /**
     * Reads the device information block, 32 bytes at 0xF0000000, makes the unit the selected
     * device and stores a new ModelManagement for it in the registry. Nothing in the library owns
     * or deletes it; an earlier one remains. The application may delete that, on any thread,
     * when no operation runs and it has no use for its models any more: ask
     * DeviceManagerModel::getDeviceData() for the pointer before the read. Emits
     * `signal_updateDeviced`. Label: "回读设备信息".
     */
    bool readDeviceParameter(QString& error);
    /**
     * Writes the serial block at 0xF0001000 and, once that is answered, the IO block at 0xF0001100.
     * Updates the registry and emits `signal_updateConfiged`. Label: "配置参数".
     */
    bool sendConfig(QString& error);
    /**
     * Reads both configuration blocks, as long as setConfigNumber() says. Updates the registry and
     * emits `signal_updateConfiged`. A failure of the second leaves the first in the working copy.
     * Label: "回读配置参数".
     */
    bool readConfigParameter(QString& error);
    /**
     * Writes the count byte at 0xF0020000 and then the events, four to a write, 2048 bytes apart
     * from 0xF0020001 on. Updates the registry and emits `signal_updateEvented`. Label: "配置参数".
     *
     * Nothing is limited here, but a read is: 129 to 255 events read back as an empty table, and of
     * 256 and more only the low 8 bits go out as the count. A block of more than 512 bytes shifts
     * those after it in the same write. See EventInfo for the limits of one event.
     */
    bool sendEvent(QString& error);
    /**
     * Appends the unit's events to the working copy, block by block. A count over 128 reads as an
     * empty table. Updates the registry and emits `signal_updateEvented`. After a failure the
     * working copy keeps the events that were read. Label: "回读事件参数".
     */
    bool readEventParameter(QString& error);
    /**
     * Writes the count byte at 0xF0010000 and then all triggers and all time triggers after them,
     * four to a write, 2048 bytes apart from 0xF0010001 on. A model that was not placed goes out as
     * it is: an empty one leaves no entry of its kind on the unit. Updates the registry and
     * emits `signal_updateTriggered`, then `signal_updateTimeTriggered`. Label: "配置参数".
     *
     * Nothing is limited here, but a read is: 65 to 255 entries of both kinds together read back as
     * an empty table, and of 256 and more only the low 8 bits are written as the count. A block of
     * more than 512 bytes shifts those after it in the same write. See TriggerInfo and
     * TriggerTimeInfo for the limits of one entry.
     */
    bool sendTrigger(QString& error);
    /** The same as sendTrigger(): both kinds share one table. */
    bool sendTimeTrigger(QString& error);
    /**
     * Walks the whole trigger table, appends its serial and IO triggers to the working copy and
     * numbers them from 0. A count over 64 reads as an empty table. Updates the registry and emits
     * `signal_updateTriggered`. After a failure the working copy keeps the triggers that were read,
     * without numbers. Label: "回读触发参数".
     */
    bool readTriggerParameter(QString& error);
    /** The same walk for the time triggers, ending in `signal_updateTimeTriggered`. */
    bool readTimeTriggerParameter(QString& error);
    /**
     * Reads all that a unit stores: device, configuration, events, triggers, time triggers, clock.
     * Stops at the first that fails. The lists are not emptied here but by the dispatch.
     */
    bool readData(QString& error);
    /**
     * Reads the clock, 6 bytes at 0x02000011, and reports it by `signal_backread`, as in
     * "2026/01/09 07:05:03", with one blank. A reply under 24 bytes fails with
     * "数据包长度小于最小数据包长度！"; its address and length are not compared. The year has no
     * leading zero: the cell's year 5 reads as "205/...". Label: "校时回读".
     */
    bool backwordread(QString& error);
    /**
     * Sets the clock to the time placed by setTimingCheck(). `signal_backread` reports that text
     * before the reply is awaited, whether or not the unit accepts it. The century is dropped, and
     * a part that is not a number counts as 0. Label: "同步本地时间".
     */
    bool backwordwrite(QString& error);
    /**
     * Writes the reset command, one byte at 0xF000001C. The reply is awaited only if the unit keeps
     * its address; else the result is true at once. Label: "配置参数".
     */
    bool sendReset(QString& error);
    /**
     * Gives the unit a fixed address: 13 bytes at 0xF000000E. False without a frame if one of the
     * three texts has fewer than four parts between dots; further parts are ignored, and a part
     * that is not a number counts as 0. The reason of a failure is not reported.
     */
    bool sendNetWork(QString ip, QString subnet, QString gateway);
    /**
     * Stores the low `length` bytes of `value` at `start`, most significant first, and always sets
     * `*next` to `start + length`. False, with nothing written, if `length` is not above 0 or the
     * last byte would lie more than one position after the end; at the end the array grows by one
     * byte.
     */
    bool setBytesFromInt(QByteArray* bytes, int start, int length, int value, int* next);
    /**
     * Writes both images to the unit, at most 2048 bytes a frame, between the control words that
     * announce them. `signal_updateProgress` reports the progress after each exchange. There is
     * no resume: a failed upgrade starts over with setUpgradePackage(). After the last exchange
     * `signal_updateProgress` says "重连设备中"; the unit is not waited for. Label: "升级".
     */
    bool upgradeDevcie(QString& error);
    /**
     * Emits `signal_updateProgress` for `value` of `total`, rounded to a whole percentage:
     * "升级中", a line break, the number and "%".
     */
    void updateProgressBar(double value, double total);
    /**
     * Writes the remark of the last setUpgradePackage(), 90 bytes, at 0x18201000; without one, an
     * empty block. Label: "升级".
     */
    bool updateRemark(QString& error);

Q_SIGNALS:
    /** An operation that the dispatch started has failed, for the reason given. */
    void signal_errored(QString error);
    /** `ReadDataType` is done; the selected device as the read left it. */
    void signal_readFinished(DeviceModel);
    /** Another operation is done; the selected device as it was when the operation began. */
    void signal_finshed(DeviceModel);
    /** A frame to carry to the unit. To be connected directly. */
    void signal_sendPackage(QByteArray package);
    /** `UpgradeDeviceType` is done; the name that was placed with the images. */
    void signal_finshedUpgrade(QString);
    /** `UpdateRemarkType` is done. */
    void signal_finshedUpdateRemark();
    /** A text for the progress display of an upgrade, see updateProgressBar(). */
    void signal_updateProgress(QString progress);
    /** The unit's time as it was read, or the time that was sent. */
    void signal_backread(QString read);
    /** Declared for applications; the library does not emit it. */
    void signal_ConnectDevice(QString ip);
    /** The registry's configuration of the selected device has changed. */
    void signal_updateConfiged();
    /** The registry's events of the selected device have changed. */
    void signal_updateEvented();
    /** The registry's triggers of the selected device have changed. */
    void signal_updateTriggered();
    /** The registry's time triggers of the selected device have changed. */
    void signal_updateTimeTriggered();
    /** The selected device is now what the unit reported. */
    void signal_updateDeviced();
    /** Declared for applications; the library does not emit it. */
    void signal_updateProjected();
    /** Declared for applications; the library does not emit it. */
    void signal_upGraded(QString);
    /** Declared for applications; the library does not emit it. */
    void signal_reseted(bool);
    /** Declared for applications; the library does not emit it. */
    void signal_backwardwrite();
    /** Declared for applications; the library does not emit it. */
    void signal_backwardread();
    /** slot_SendQuadrelNetWork() is done: its first two arguments, and whether the unit answered.
     */
    void signal_finishnetwork(QString oldIp, QString newIp, bool result);

public Q_SLOTS:
    /**
     * Runs the operation of `type` and ends in exactly one closing signal. Clears the error state
     * and the reply buffer first. A value without an operation ends in `signal_finshed`.
     */
    void slot_runReadPackage(DataPackageType type);
    /**
     * Gives the unit the address `newIp` and ends in `signal_finishnetwork`. `oldIp` is only
     * repeated there. Clears no error state: a failure left by setError() fails this operation too.
     */
    void slot_SendQuadrelNetWork(QString oldIp, QString newIp, QString subnet, QString gateway);

private:
    /** Internal: lets the link await replies in place of the object, and give it a registry. */
    friend class UnPackageAccess;

    Q_DECL_HIDDEN bool sleepUntilWoken();
    bool runOperation(DataPackageType type, QString& error);
    void emitFinished(DataPackageType type, const DeviceModel& device);
    bool readEverything(QString& error);
    bool readBlock(unsigned int address, unsigned int length, const QString& label, QString& error);
    bool writeBlock(
        unsigned int address, const QByteArray& data, const QString& label, QString& error);
    void sendWrite(unsigned int address, const QByteArray& data);
    template <typename Encode>
    bool writeRecords(unsigned int address, int count, Encode encode, QString& error);
    struct RecordTable;
    template <typename Length, typename Model>
    Q_DECL_HIDDEN bool readTable(const RecordTable& table, int& count,
        bool (*parseCount)(uint, QByteArray, Length, int&, QString&),
        bool (*parseRecord)(uint, QByteArray, Length, Model&, QString&), Model& model,
        QString& error);
    QByteArray encodeTableEntry(int index);
    class Q_DECL_HIDDEN Upgrade;

    // Applications make objects of their own and destroy them inline: the fields keep their places
    // and types, or become others of the same size that need no destructor.

    // The unit's memory: bytes of blocks and cells, and the numbers of records in its tables.
    int m_comNumber = 9;
    int m_ioNumber = 12;
    int m_comLength = 7;
    int m_ioLength = 2;
    int m_eventCount = 0;
    int m_eventHeadLength = 1;
    int m_eventLength = 512;
    int m_triggerHeadLength = 1;
    int m_triggerCount = 0;
    int m_triggerLength = 512;
    int m_timeTriggerHeadLength = 1;
    int m_timeTriggerCount = 0;
    int m_timeTriggerLength = 512;
    [[maybe_unused]] int m_spareLength = 20; // of the unit's map; no operation needs it
    int m_deviceLength = 32;
    int m_upgradeChunkLength = 2048;
    int m_clockLength = 6;
    QByteArray m_recvPackage;
    QByteArray m_streamedImage;
    QByteArray m_addressedImage;
    QByteArray m_upgradeRemark;
    bool m_hasError = false;
    QString m_errorText;
    int m_timeout = 0;
    unsigned char m_labels = 0;
    QMutex m_mutex;
    QWaitCondition m_waitCondition;
    bool m_retainIP = true;
    SystemModel m_configModel;
    EventModel m_eventModel;
    TriggerModel m_triggerModel;
    TriggerTimeModel m_timeTriggerModel;
    DeviceModel m_deviceModel;
    QString m_upgradeName;
    QString m_timingCheck;
    /** Internal; null for an object that has its own wait and the registry of the process. */
    const UnPackageLink* m_link = nullptr;

    static UnPackage* m_unPackageInstance;
};
