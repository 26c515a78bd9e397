#pragma once

/** The waits of configWidget.ini beside the program, in milliseconds, as the library reads them. */
struct Settings {
    int communicationTimeout;
    int searchTimeout;
    int upgradeTimeout;

    static Settings load();
};
