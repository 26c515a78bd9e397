// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fuzzsetup.h"

#include <QtCore/QString>

#include <cstddef>
#include <cstdint>

#include <sys/mman.h>
#include <unistd.h>

/** A file in memory, which readers open by its path as any other. */
class InputFile {
public:
    InputFile()
        : m_descriptor(memfd_create("input", 0))
    {
        require(m_descriptor >= 0, "there is a file in memory");
    }
    ~InputFile() { close(m_descriptor); }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    void setContent(const std::uint8_t* data, std::size_t size)
    {
        require(ftruncate(m_descriptor, 0) == 0
                && pwrite(m_descriptor, data, size, 0) == static_cast<ssize_t>(size),
            "the file takes the input");
    }
    QString path() const { return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor); }

private:
    int m_descriptor;
};
