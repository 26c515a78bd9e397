// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fuzzsetup.h"
#include "guardedxml.h"

#include <QtCore/QBuffer>
#include <QtXml/QDomDocument>

#include <cstddef>
#include <cstdint>
#include <ctime>

/** Only sanitizers have it. */
extern "C" std::size_t __sanitizer_get_current_allocated_bytes() __attribute__((weak));

namespace {

constexpr double bytesInMegabyte = 1024.0 * 1024;
/** A file of 1 MB may cost 0.25 s and 80 MB; what the sanitizers add comes on top. */
constexpr double megabytesForEach = 80 * 2;
constexpr double secondsForEach = 0.25 * 10;
/** For what the limits allow to the smallest file. */
constexpr double megabytesAtLeast = 40;
constexpr double secondsAtLeast = 1;

double allocatedBytes()
{
    return __sanitizer_get_current_allocated_bytes
        ? double(__sanitizer_get_current_allocated_bytes())
        : 0;
}

} // namespace

/** What a document costs its reader stays in proportion to its size. */
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const double before = allocatedBytes();
    const std::clock_t start = std::clock();

    QDomDocument document;
    setContentGuarded(document, buffer, {"deep", "large", "many"}, nullptr);

    const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
    const double grown = allocatedBytes() - before;
    const double share = double(size) / bytesInMegabyte;
    require(grown <= (megabytesAtLeast + megabytesForEach * share) * bytesInMegabyte,
        "the memory stays in proportion");
    require(seconds <= secondsAtLeast + secondsForEach * share, "the time stays in proportion");
    return 0;
}
