// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "openfiles.h"

#include <algorithm>

#include <sys/resource.h>

bool allowOpenFiles(quint64 count, quint64 least, QString* error)
{
    rlimit limit = {};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur >= count)
        return true;
    limit.rlim_cur = std::min<rlim_t>(count, limit.rlim_max);
    setrlimit(RLIMIT_NOFILE, &limit);
    if (limit.rlim_cur >= least)
        return true;
    *error = QStringLiteral("the units need %1 open files, and %2 are allowed: lower --count, or "
                            "raise the limit (ulimit -n)")
                 .arg(least)
                 .arg(limit.rlim_cur);
    return false;
}
