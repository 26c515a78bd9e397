// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>

#include <ctime>

#include <malloc.h>

/** What this process has spent since the object was made. */
class OwnCost {
public:
    OwnCost()
    {
        malloc_trim(0);
        QFile peak(QStringLiteral("/proc/self/clear_refs"));
        m_measuresMemory = peak.open(QIODevice::WriteOnly) && peak.write("5") == 1 && peak.flush();
        m_kibibytes = peakKibibytes();
        m_clock = std::clock();
    }

    /** Of the processor, so that what else the machine does has no part in it. */
    double processorSeconds() const { return double(std::clock() - m_clock) / CLOCKS_PER_SEC; }

    /** 0 where the peak can't be measured: sanitizers keep memory of their own. */
    double peakMegabytes() const
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        return 0;
#else
        return m_measuresMemory ? double(peakKibibytes() - m_kibibytes) * 1024 / 1e6 : 0;
#endif
    }

private:
    static long peakKibibytes()
    {
        QFile status(QStringLiteral("/proc/self/status"));
        if (!status.open(QIODevice::ReadOnly))
            return 0;
        const QList<QByteArray> lines = status.readAll().split('\n');
        for (const QByteArray& line : lines) {
            if (line.startsWith("VmHWM:"))
                return line.mid(6).simplified().split(' ').first().toLong();
        }
        return 0;
    }

    bool m_measuresMemory = false;
    long m_kibibytes = 0;
    std::clock_t m_clock = 0;
};
