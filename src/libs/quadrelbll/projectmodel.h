// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>

#include "projectinfo.h"
#include "quadrelbll_global.h"

/**
 * The project records that the application keeps with one unit, in order. The list does not sort,
 * and the library neither sends it to a unit nor stores it in a file.
 *
 * The model is a value: a copy has no parent and shares the list until one side writes. A bad index
 * is ignored by removeAt(), clamped by insert() and the caller's fault in at() and replace(). The
 * model has no lock; copies may go to other threads.
 */
class QUADRELBLL_EXPORT ProjectModel : public QObject {
    Q_OBJECT

public:
    /** An empty list with no parent. */
    ProjectModel();
    /** Shares the list of `other`; the copy has no parent. */
    ProjectModel(const ProjectModel& other);
    /** Shares the list of `other`; does nothing when it is shared already. */
    ProjectModel& operator=(const ProjectModel& other);
    /** True when both share one list, or hold equal projects in the same order. */
    bool operator==(const ProjectModel& other) const;

    /** The number of projects. */
    int size();
    /** A copy of the project at `index`, not tested: it must lie within 0 to size() - 1. */
    ProjectInfo at(int index);
    /** Removes all projects. */
    void clear();
    /** The list, shared until one side writes. */
    QList<ProjectInfo> getProjectInfo();
    /** Replaces the list. */
    void setProjectInfo(QList<ProjectInfo> projects);
    /** Appends a copy. */
    void push_back(ProjectInfo project);
    /** Inserts a copy before `index`; at or below 0 means the front, at or past size() the end. */
    void insert(int index, ProjectInfo project);
    /** Removes the project at `index`; an index outside the list is ignored. */
    void removeAt(int index);
    /** Assigns to the project at `index`, not tested: it must lie within 0 to size() - 1. */
    void replace(int index, ProjectInfo project);

private:
    QList<ProjectInfo> m_projects;
};
