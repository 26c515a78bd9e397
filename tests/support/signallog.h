// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unpackage.h"

#include <QtCore/QObject>
#include <QtCore/QStringList>

/**
 * Writes down every signal of an operations object but the frames, in the order of their emission:
 * the name without "signal_", and the arguments after a colon.
 */
class SignalLog : public QObject {
public:
    explicit SignalLog(UnPackage& operations)
    {
        const auto log = [this](const char* name, const QString& arguments = QString()) {
            const QString entry = QString::fromLatin1(name);
            entries.append(arguments.isNull() ? entry : entry + QLatin1Char(':') + arguments);
        };
        const auto plain = [&](const char* name, void (UnPackage::*signal)()) {
            connect(
                &operations, signal, this, [log, name] { log(name); }, Qt::DirectConnection);
        };
        const auto text = [&](const char* name, void (UnPackage::*signal)(QString)) {
            connect(
                &operations, signal, this,
                [log, name](const QString& argument) { log(name, argument); },
                Qt::DirectConnection);
        };
        const auto device = [&](const char* name, void (UnPackage::*signal)(DeviceModel)) {
            connect(
                &operations, signal, this,
                [log, name](DeviceModel model) { log(name, model.getIP()); }, Qt::DirectConnection);
        };
        text("errored", &UnPackage::signal_errored);
        device("readFinished", &UnPackage::signal_readFinished);
        device("finshed", &UnPackage::signal_finshed);
        text("finshedUpgrade", &UnPackage::signal_finshedUpgrade);
        plain("finshedUpdateRemark", &UnPackage::signal_finshedUpdateRemark);
        text("updateProgress", &UnPackage::signal_updateProgress);
        text("backread", &UnPackage::signal_backread);
        text("ConnectDevice", &UnPackage::signal_ConnectDevice);
        plain("updateConfiged", &UnPackage::signal_updateConfiged);
        plain("updateEvented", &UnPackage::signal_updateEvented);
        plain("updateTriggered", &UnPackage::signal_updateTriggered);
        plain("updateTimeTriggered", &UnPackage::signal_updateTimeTriggered);
        plain("updateDeviced", &UnPackage::signal_updateDeviced);
        plain("updateProjected", &UnPackage::signal_updateProjected);
        text("upGraded", &UnPackage::signal_upGraded);
        connect(
            &operations, &UnPackage::signal_reseted, this,
            [log](bool result) { log("reseted", QString::number(result)); }, Qt::DirectConnection);
        plain("backwardwrite", &UnPackage::signal_backwardwrite);
        plain("backwardread", &UnPackage::signal_backwardread);
        connect(
            &operations, &UnPackage::signal_finishnetwork, this,
            [log](const QString& oldIp, const QString& newIp, bool result) {
                log("finishnetwork",
                    oldIp + QLatin1Char(',') + newIp + QLatin1Char(',') + QString::number(result));
            },
            Qt::DirectConnection);
    }

    QStringList entries;
};
