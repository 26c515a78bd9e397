// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/QString>

/**
 * The settings file beside the application. Without an application object, as when the library is
 * linked directly and so loaded before main, the folder is empty and the file is sought at the
 * root.
 */
QString settingsFilePath();
