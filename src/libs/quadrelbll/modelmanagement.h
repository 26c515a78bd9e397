// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include "devicemodel.h"
#include "eventmodel.h"
#include "projectmodel.h"
#include "quadrelbll_global.h"
#include "systemmodel.h"
#include "triggermodel.h"
#include "triggertimemodel.h"

/**
 * All that is known of one unit: its record, configuration, events, triggers, time triggers and the
 * application's project records.
 *
 * The six models live as long as the aggregate. A getter hands out a pointer to the aggregate's own
 * model, so that a caller edits it in place; a setter assigns into that model and never replaces
 * it. The aggregate has no lock.
 */
class QUADRELBLL_EXPORT ModelManagement : public QObject {
    Q_OBJECT

public:
    /** Six models at their defaults. */
    explicit ModelManagement(QObject* parent = nullptr);
    /** Deletes the six models; pointers from the getters are dead from then on. */
    ~ModelManagement() override;

    /** The settings of serial ports and IO lines, owned by the aggregate. */
    SystemModel* getConfigModel();
    /** Assigns the settings of serial ports and IO lines. */
    void setConfigModel(SystemModel model);

    /** The events, owned by the aggregate. */
    EventModel* getEventModel();
    /** Assigns the events. */
    void setEventModel(EventModel model);

    /** The triggers, owned by the aggregate. */
    TriggerModel* getTriggerModel();
    /** Assigns the triggers. */
    void setTriggerModel(TriggerModel model);

    /** The time triggers, owned by the aggregate. */
    TriggerTimeModel* getTriggerTimeModel();
    /** Assigns the time triggers. */
    void setTriggerTimeModel(TriggerTimeModel model);

    /** The unit's record, owned by the aggregate. */
    DeviceModel* getDeviceModel();
    /** Assigns the unit's record. */
    void setDeviceModel(DeviceModel model);

    /** The project records, owned by the aggregate. */
    ProjectModel* getProjectModel();
    /** Assigns the project records. */
    void setProjectModel(ProjectModel model);

    /** The application's flag; false until it is set. The library does not use it. */
    bool getTriggerType();
    /** Sets the application's flag. */
    void setTriggerType(bool type);

    /**
     * The name of the event to which a text such as "[事件(ID:12)]" refers.
     *
     * The id is the number between the first "ID:" and the next ")", or the end of the text where
     * there is no ")". A text without a number reads as id 0. The first event with the id wins;
     * without one, and without any events, the name is empty.
     */
    QString getEventNamefromId(QString text);

private:
    SystemModel* m_configModel;
    EventModel* m_eventModel;
    TriggerModel* m_triggerModel;
    TriggerTimeModel* m_triggerTimeModel;
    DeviceModel* m_deviceModel;
    ProjectModel* m_projectModel;
    bool m_triggerType = false;
};
