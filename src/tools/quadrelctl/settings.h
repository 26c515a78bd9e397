#pragma once

/** The waits of configWidget.ini beside the program, in milliseconds. */
struct Settings {
    /** Of one try of an exchange; 3000 if the file has none. */
    int communicationTimeout;
    /** The library reads these two itself, as 0 if the file has none. */
    int searchTimeout;
    int upgradeTimeout;

    static Settings load();
};
