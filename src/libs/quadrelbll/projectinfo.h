// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include "quadrelbll_global.h"

/**
 * The name and the remark of a project.
 *
 * | Field           | Default   | Meaning       |
 * |-----------------|-----------|---------------|
 * | `projectname`   | null text | shown name    |
 * | `projectremark` | null text | free remark   |
 *
 * The library carries the record for the application only: no unit and no file holds it.
 *
 * The record is a value: a copy has no parent. The properties are bound to the fields, with no
 * notification. The record has no lock; copies may go to other threads.
 */
class QUADRELBLL_EXPORT ProjectInfo : public QObject {
    Q_OBJECT
    ///@{
    /** The field of this name. */
    Q_PROPERTY(QString projectname MEMBER projectname)
    Q_PROPERTY(QString projectremark MEMBER projectremark)
    ///@}

public:
    /** A record with two null texts and no parent. */
    ProjectInfo();
    /** Copies both texts of `other`; the copy has no parent. */
    ProjectInfo(const ProjectInfo& other);
    /** Copies both texts of `other`; parent, object name and connections stay. */
    ProjectInfo& operator=(const ProjectInfo& other);
    /** True when both texts are equal, exactly and in their case too. */
    bool operator==(const ProjectInfo& other) const;

    ///@{
    /** The project's name. */
    void setProjectName(QString name);
    QString getProjectName();
    ///@}

    ///@{
    /** The project's remark. */
    void setProjectRemark(QString remark);
    QString getProjectRemark();
    ///@}

private:
    QString projectname;
    QString projectremark;
};
