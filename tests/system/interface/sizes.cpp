// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Applications that were compiled against 0.1.0 make objects of these classes themselves, and
// destroy them inline. That it builds is the test.
#include "devicemanagermodel.h"
#include "modelmanagement.h"
#include "projectinfo.h"
#include "projectmodel.h"
#include "searchdevice.h"
#include "unpackage.h"
#include "xmlfile.h"

// Numbers of 64-bit processors.
#if QT_POINTER_SIZE == 8
static_assert(sizeof(ComInfo) == 32);
static_assert(sizeof(DeviceManagerModel) == 144);
static_assert(sizeof(DeviceModel) == 120);
static_assert(sizeof(EventInfo) == 56);
static_assert(sizeof(EventModel) == 24);
static_assert(sizeof(ModelManagement) == 72);
static_assert(sizeof(ProjectInfo) == 32);
static_assert(sizeof(ProjectModel) == 24);
static_assert(sizeof(SearchDevice) == 56);
static_assert(sizeof(SystemModel) == 32);
static_assert(sizeof(TriggerInfo) == 64);
static_assert(sizeof(TriggerModel) == 24);
static_assert(sizeof(TriggerTimeInfo) == 72);
static_assert(sizeof(TriggerTimeModel) == 24);
static_assert(sizeof(UnPackage) == 416);
static_assert(sizeof(XmlFile) == 16);
static_assert(sizeof(serverData) == 37);
#endif
