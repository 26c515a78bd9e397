// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitaddress.h>

#include <QtCore/QObject>
#include <QtCore/QVector>

/** Finds units; the tests have one of their own, since the real one broadcasts. */
class UnitSearch : public QObject {
    Q_OBJECT

public:
    struct Found {
        UnitAddress address;
        QString model;
    };

    using QObject::QObject;

    /** No effect while a search runs. */
    virtual void start() = 0;
    virtual bool isRunning() const = 0;

signals:
    /** All that were found so far; comes whenever there are more. */
    void found(const QVector<UnitSearch::Found>& units);
    void finished();
};
