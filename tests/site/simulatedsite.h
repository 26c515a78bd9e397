// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "programs.h"

#include <QtCore/QJsonObject>
#include <QtCore/QStringList>

#include <memory>

/**
 * Simulated units "u-1", "u-2" and so on in one process, with the serial numbers 310000001 and so
 * on, and the tool in a folder of its own with an inventory of them. Odd units have the tag "odd".
 */
class SimulatedSite {
public:
    explicit SimulatedSite(
        int count, const QStringList& simulatorOptions = {}, int firstSerial = 310000001);

    /** "quadrelctl site" with these words, parted by "|". */
    ToolResult run(const char* words);
    /** The arguments of run() for a program that the test starts itself. */
    QStringList arguments(const char* words) const;
    /** quadrelctl itself, "@3" being the address of u-3. */
    ToolResult control(const char* words);
    QJsonObject runJson(const char* words);

    QString address(int unit) const { return m_addresses.at(unit - 1); }
    QString document(int unit) const;
    /** Reads each unit into its document. */
    void saveDocuments();
    void writeInventory(const QByteArray& text) const
    {
        tool.write(QStringLiteral("site.yaml"), text);
    }
    QByteArray inventory() const;

    /** Ends the units' process; started again they have their memory, and the inventory is right.
     */
    void switchOff() { m_simulator.reset(); }
    void switchOn(const QStringList& simulatorOptions = {});

    /** Text with the units' addresses as "@1", and the tool's folder as "DIR". */
    QString masked(QString text) const;

    ControlTool tool;

private:
    QStringList words(const char* line) const;

    const int m_count;
    const int m_firstSerial;
    QStringList m_addresses;
    std::unique_ptr<Simulator> m_simulator;
};
