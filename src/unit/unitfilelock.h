// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace QuadrelUnit {

/**
 * A file that one process at a time can hold. The system lets it go when the process ends, however
 * that happens; and it may vanish under its holder, which QLockFile would warn of.
 */
class UnitFileLock {
public:
    enum Result {
        Held,
        /** Another process holds it, or another lock of this one. */
        Taken,
        /** The file cannot be made. */
        Impossible
    };

    UnitFileLock() = default;
    /** Lets the file go and removes it. */
    ~UnitFileLock();
    Q_DISABLE_COPY_MOVE(UnitFileLock)

    Result hold(const QString& path);
    /** The number of the process that has taken it, or an empty text if it does not say. */
    QString holder() const { return m_holder; }

private:
    QByteArray m_path;
    int m_descriptor = -1;
    QString m_holder;
};

} // namespace QuadrelUnit
