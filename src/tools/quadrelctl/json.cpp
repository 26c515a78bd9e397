// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "json.h"

#include "console.h"

#include <unitdocument.h>

#include <QtCore/QJsonDocument>

using namespace QuadrelDocument;

void printJson(const QJsonObject& object)
{
    Console::print(QString::fromUtf8(QJsonDocument(object).toJson()));
}

void printJson(const QJsonArray& array)
{
    Console::print(QString::fromUtf8(QJsonDocument(array).toJson()));
}

void printJson(const Contents& contents)
{
    Console::print(QString::fromUtf8(writeDocument(contents, Form::Json)));
}

QJsonObject deviceToJson(const Device& device)
{
    Contents contents;
    contents.device = device;
    const QJsonObject document =
        QJsonDocument::fromJson(writeDocument(contents, Form::Json)).object();
    return document.value(sectionName(Section::Device)).toObject();
}
