#pragma once

#include "settings.h"
#include "unitsession.h"

/** A session that ends a command: each call throws CommandFailure when it fails or is interrupted.
 */
class Session {
public:
    explicit Session(const UnitAddress& address);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    const Settings& settings() const { return m_settings; }
    bool isConnected() const { return m_session.isConnected(); }

    UnitData run(const UnitRequest& request, const UnitSession::ProgressHandler& progress = {});
    /** Reads everything, and shows how far it has come. */
    UnitData readEverything();

private:
    const Settings m_settings;
    UnitSession m_session;
};
