// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "projectmodel.h"

#include <utility>

#include "listoperations.h"

ProjectModel::ProjectModel() = default;

ProjectModel::ProjectModel(const ProjectModel& other)
    : QObject(nullptr)
    , m_projects(other.m_projects)
{
}

ProjectModel& ProjectModel::operator=(const ProjectModel& other)
{
    m_projects = other.m_projects;
    return *this;
}

bool ProjectModel::operator==(const ProjectModel& other) const
{
    return m_projects == other.m_projects;
}

int ProjectModel::size()
{
    return m_projects.size();
}

ProjectInfo ProjectModel::at(int index)
{
    return m_projects.at(index);
}

void ProjectModel::clear()
{
    m_projects.clear();
}

QList<ProjectInfo> ProjectModel::getProjectInfo()
{
    return m_projects;
}

void ProjectModel::setProjectInfo(QList<ProjectInfo> projects)
{
    m_projects = std::move(projects);
}

void ProjectModel::push_back(ProjectInfo project)
{
    m_projects.push_back(project);
}

void ProjectModel::insert(int index, ProjectInfo project)
{
    ListOperations::insert(m_projects, index, project);
}

void ProjectModel::removeAt(int index)
{
    ListOperations::removeAt(m_projects, index);
}

void ProjectModel::replace(int index, ProjectInfo project)
{
    m_projects.replace(index, project);
}
