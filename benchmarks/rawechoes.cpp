// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// A socket and raw echoes, so many: the least that a client in a process of its own can do.
#include "echosize.h"
#include "rawecho.h"

#include <cstdlib>

/** rawechoes PORT ECHOES */
int main(int argc, char** argv)
{
    if (argc < 3)
        return 1;
    RawEchoClient client(
        static_cast<std::uint16_t>(std::atoi(argv[1])), EchoSize::request, EchoSize::record);
    for (int i = std::atoi(argv[2]); i > 0; --i)
        client.exchange();
    return 0;
}
