// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "devicemanagermodel.h"
#include "modelmanagement.h"
#include "searchdevice.h"
#include "unpackage.h"
#include "xmlfile.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTranslator>
#include <QtTest/QTest>

/** What the blocks of the guide take for granted around them. */
#define SURROUNDINGS                                                                               \
    [[maybe_unused]] QObject *receiver, [[maybe_unused]] const QString &folder,                    \
        [[maybe_unused]] const QString &path, [[maybe_unused]] SystemModel configuration,          \
        [[maybe_unused]] EventModel events, [[maybe_unused]] TriggerModel triggers
