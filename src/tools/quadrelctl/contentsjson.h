#pragma once

#include "contents.h"

#include <QtCore/QJsonObject>
#include <QtCore/QJsonValue>

/** The JSON form of docs/quadrelctl.md, whose field names are promised to stay. */
QJsonObject deviceToJson(DeviceModel device);
/** What is not there has no field. */
QJsonObject contentsToJson(const Contents& contents);

/** Prints indented JSON. */
void printJson(const QJsonObject& object);
void printJson(const QJsonArray& array);
