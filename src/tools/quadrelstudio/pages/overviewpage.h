// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QElapsedTimer>
#include <QtWidgets/QWidget>

class QFormLayout;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class UnitWorkspace;

/** Who the unit is, how full it is, what its clock says, and what is done to the unit itself. */
class OverviewPage : public QWidget {
    Q_OBJECT

public:
    explicit OverviewPage(UnitWorkspace& workspace, QWidget* parent = nullptr);

    // Each asks first.
    void askToSetClock();
    void askForNetwork();
    void askToRestart();
    void askToRestartWithDefault();
    void askForRemark();

protected:
    void changeEvent(QEvent* event) override;

private:
    QLabel* addLine(QFormLayout* form);
    QProgressBar* addBar(QFormLayout* form, int limit);
    QPushButton* addButton(QLayout* layout, void (OverviewPage::*act)());
    void layOut(QFormLayout* device, QFormLayout* counts);
    void readClock();
    void takeClock();
    void update();
    void updateClock();
    void updateButtons();
    void retranslate();

    UnitWorkspace& m_workspace;
    QLabel* m_hint;
    QGroupBox* m_deviceBox;
    QGroupBox* m_countBox;
    QGroupBox* m_clockBox;
    QGroupBox* m_unitBox;
    QLabel* m_model;
    QLabel* m_serialNumber;
    QLabel* m_version;
    QLabel* m_address;
    QLabel* m_mask;
    QLabel* m_gateway;
    QLabel* m_dhcp;
    QLabel* m_parts;
    QProgressBar* m_events;
    QProgressBar* m_entries;
    QLabel* m_clock;
    /** Of the unit's clock over this machine's, in seconds. */
    qint64 m_offset = 0;
    QPushButton* m_readClock;
    QPushButton* m_setClock;
    QPushButton* m_network;
    QPushButton* m_restart;
    QPushButton* m_restartWithDefault;
    QPushButton* m_remark;
};
