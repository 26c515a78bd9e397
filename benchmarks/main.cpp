// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "report.h"
#include "rows.h"

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv, [] {
        return joined({signalExchangeRows(), unitExchangeRows(), modbusExchangeRows(), codecRows(),
            projectFileRows(), processRows(), savingUnitRows()});
    });
}
