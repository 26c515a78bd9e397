#pragma once

#include "contents.h"

#include <QtCore/QString>

/** A unit's information block, a line for each fact. */
QString deviceTable(DeviceModel device);
/** A headed table for each kind of record that is there. */
QString contentsTables(const Contents& contents);
