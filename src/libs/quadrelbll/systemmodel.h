// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

#include "cominfo.h"
#include "quadrelbll_global.h"

/**
 * The configuration of one unit: its serial ports in port order and its IO lines in line order.
 *
 * Both lists are empty at first and have no limit of their own. The model is a value: a copy has no
 * parent and shares the lists until one side writes. It has no lock; copies may go to other
 * threads.
 */
class QUADRELBLL_EXPORT SystemModel : public QObject {
    Q_OBJECT

public:
    /** Two empty lists and no parent. */
    SystemModel();
    /** Shares the lists of `other`; the copy has no parent. */
    SystemModel(const SystemModel& other);
    /** Shares the lists of `other`; parent, object name and connections stay. */
    SystemModel& operator=(const SystemModel& other);
    /** True when both hold equal serial ports and equal IO lines, each in the same order. */
    bool operator==(const SystemModel& other) const;

    /** The serial ports, in port order. */
    QList<ComInfo> getComInfo();
    /** Replaces the serial ports. */
    void setComInfo(QList<ComInfo> ports);

    /** The settings of the IO lines, in line order. */
    QList<IOType> getIOType();
    /** Replaces the settings of the IO lines. */
    void setIOType(QList<IOType> lines);

private:
    QList<ComInfo> m_ports;
    QList<IOType> m_lines;
};
