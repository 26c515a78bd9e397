// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitsearch.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

#include <memory>

class SearchDevice;

/** Asks all units of the local network to answer. */
class NetworkSearch : public UnitSearch {
    Q_OBJECT

public:
    /** A search lasts `length` milliseconds. */
    explicit NetworkSearch(int length, QObject* parent = nullptr);
    ~NetworkSearch() override;

    void start() override;
    bool isRunning() const override { return m_timer.isActive(); }

private:
    void look();

    const int m_length;
    std::unique_ptr<SearchDevice> m_search;
    QTimer m_timer;
    QElapsedTimer m_elapsed;
};
