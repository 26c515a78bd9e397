// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>
#include <QtCore/QTranslator>

/** Translates each text into itself, with the context in which it was looked up in front. */
class ContextTranslator : public QTranslator {
public:
    QString translate(const char* context, const char* source, const char* /*disambiguation*/,
        int /*n*/) const override
    {
        return QString::fromUtf8(context) + QLatin1Char('|') + QString::fromUtf8(source);
    }
    bool isEmpty() const override { return false; }
};
