// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unittransport.h"

#include "transportbinding.h"
#include "transportcore.h"

class UnitTransport::Private {
public:
    Private(UnPackage& unPackage, const UnitAddress& address, const LinkOptions& options)
        : core(unPackage, address, options)
        , binding(unPackage, core)
    {
    }

    TransportCore core;
    TransportBinding binding;
};

UnitTransport::UnitTransport(
    UnPackage* unPackage, const UnitAddress& address, const LinkOptions& options)
    : d(std::make_unique<Private>(*unPackage, address, options))
{
}

UnitTransport::~UnitTransport() = default;

void UnitTransport::finishOperation()
{
    d->core.finishOperation();
}

void UnitTransport::cancel() noexcept
{
    d->core.cancel();
}

void UnitTransport::resume() noexcept
{
    d->core.resume();
}

bool UnitTransport::awaitLastReply()
{
    return d->core.awaitLastReply();
}

void UnitTransport::disconnectUnit()
{
    d->core.disconnectUnit();
}

bool UnitTransport::isConnected() const
{
    return d->core.isConnected();
}

bool UnitTransport::wasSent() const
{
    return d->core.wasSent();
}

LinkFailure UnitTransport::lastFailure() const
{
    return d->core.lastFailure();
}
