// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

/** Makes SIGTERM and SIGINT end the application's event loop, with exit code 0. */
void quitOnTermination();
