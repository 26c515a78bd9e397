// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "loopback.h"
#include "loopbackclient.h"
#include "rows.h"
#include "timing.h"
#include "unitaddresses.h"
#include "unitmemoryfile.h"

#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <atomic>

namespace {

/** The longest read while a unit saves as much memory as it can have, and while it does not. */
class LongestRead : public Comparison {
public:
    LongestRead()
    {
        m_unit.run([this](QuadrelUnit::ControlUnit& unit) {
            fill(unit.memory());
            m_file = std::make_unique<QuadrelUnit::UnitMemoryFile>(
                m_folder.filePath(QStringLiteral("memory")), &unit);
            QObject::connect(m_file.get(), &QuadrelUnit::UnitMemoryFile::saved, m_file.get(),
                [this] { m_isSaving = false; });
            QObject::connect(m_file.get(), &QuadrelUnit::UnitMemoryFile::failed, m_file.get(),
                [](const QString& error) { qFatal("%s", qPrintable(error)); });
        });
    }
    ~LongestRead() override
    {
        m_unit.run([this](QuadrelUnit::ControlUnit&) { m_file.reset(); });
    }
    Q_DISABLE_COPY_MOVE(LongestRead)

    double ours() override
    {
        m_isSaving = true;
        m_unit.run([this](QuadrelUnit::ControlUnit&) { m_file->noteChange(); });
        m_reads = 0;
        return longestRead([this] { return m_isSaving || m_reads == 0; });
    }

    double reference() override
    {
        int left = std::max(m_reads, 1000);
        return longestRead([&left] { return left-- > 0; });
    }

private:
    /** All that there is room for beside the tables. */
    static void fill(QuadrelUnit::UnitMemory& memory)
    {
        constexpr int pageSize = QuadrelUnit::UnitMemory::pageSize;
        constexpr quint32 free = 0x40000000;
        const QByteArray page(pageSize, 'm');
        for (quint32 address = free; memory.write(address, page); address += pageSize) { }
    }

    /** In milliseconds. */
    template <typename Condition> double longestRead(Condition goesOn)
    {
        double longest = 0;
        while (goesOn()) {
            const double time = microsecondsPerCall(1, [this] {
                m_client.readBlock(
                    QuadrelUnit::Address::events, QuadrelUnit::Address::recordLength);
            });
            longest = std::max(longest, time / 1000);
            ++m_reads;
        }
        m_client.finish();
        return longest;
    }

    const QTemporaryDir m_folder;
    std::atomic<bool> m_isSaving{false};
    int m_reads = 0;
    LoopbackUnit m_unit;
    std::unique_ptr<QuadrelUnit::UnitMemoryFile> m_file;
    LoopbackClient m_client{m_unit.port()};
};

} // namespace

Rows savingUnitRows()
{
    return {{"longest read while the unit saves 64 MiB / while it does not, one processor", "ms",
        {Limit::OursAtMost, 50}, 5, [] { return std::make_unique<LongestRead>(); },
        Placement::OneProcessor}};
}
