// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>

/** Prints indented JSON on stdout. */
void printJson(const QJsonObject& object);
void printJson(const QJsonArray& array);
/** Prints a document. */
void printJson(const QuadrelDocument::Contents& contents);

/** The section "device" of a document. */
QJsonObject deviceToJson(const QuadrelDocument::Device& device);
