// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "modelmanagement.h"

#include "eventitem.h"

#include <QtCore/QList>

namespace {

template <typename Model> void destroy(Model*& model)
{
    delete model;
    model = nullptr;
}

} // namespace

ModelManagement::ModelManagement(QObject* parent)
    : QObject(parent)
    , m_configModel(new SystemModel)
    , m_eventModel(new EventModel)
    , m_triggerModel(new TriggerModel)
    , m_triggerTimeModel(new TriggerTimeModel)
    , m_deviceModel(new DeviceModel)
    , m_projectModel(new ProjectModel)
{
}

ModelManagement::~ModelManagement()
{
    destroy(m_configModel);
    destroy(m_eventModel);
    destroy(m_triggerModel);
    destroy(m_triggerTimeModel);
    destroy(m_deviceModel);
    destroy(m_projectModel);
}

SystemModel* ModelManagement::getConfigModel()
{
    return m_configModel;
}

void ModelManagement::setConfigModel(SystemModel model)
{
    *m_configModel = model;
}

EventModel* ModelManagement::getEventModel()
{
    return m_eventModel;
}

void ModelManagement::setEventModel(EventModel model)
{
    *m_eventModel = model;
}

TriggerModel* ModelManagement::getTriggerModel()
{
    return m_triggerModel;
}

void ModelManagement::setTriggerModel(TriggerModel model)
{
    *m_triggerModel = model;
}

TriggerTimeModel* ModelManagement::getTriggerTimeModel()
{
    return m_triggerTimeModel;
}

void ModelManagement::setTriggerTimeModel(TriggerTimeModel model)
{
    *m_triggerTimeModel = model;
}

DeviceModel* ModelManagement::getDeviceModel()
{
    return m_deviceModel;
}

void ModelManagement::setDeviceModel(DeviceModel model)
{
    *m_deviceModel = model;
}

ProjectModel* ModelManagement::getProjectModel()
{
    return m_projectModel;
}

void ModelManagement::setProjectModel(ProjectModel model)
{
    *m_projectModel = model;
}

bool ModelManagement::getTriggerType()
{
    return m_triggerType;
}

void ModelManagement::setTriggerType(bool type)
{
    m_triggerType = type;
}

QString ModelManagement::getEventNamefromId(QString text)
{
    const int id = EventItem::id(QStringRef(&text));
    for (int i = 0; i < m_eventModel->size(); ++i) {
        EventInfo event = m_eventModel->at(i);
        if (event.getEventId() == id)
            return event.getEventName();
    }
    return QString();
}
