// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "projectinfo.h"

#include <utility>

ProjectInfo::ProjectInfo() = default;

ProjectInfo::ProjectInfo(const ProjectInfo& other)
    : QObject(nullptr)
    , projectname(other.projectname)
    , projectremark(other.projectremark)
{
}

ProjectInfo& ProjectInfo::operator=(const ProjectInfo& other)
{
    if (this == &other)
        return *this;
    projectname = other.projectname;
    projectremark = other.projectremark;
    return *this;
}

bool ProjectInfo::operator==(const ProjectInfo& other) const
{
    return projectname == other.projectname && projectremark == other.projectremark;
}

void ProjectInfo::setProjectName(QString name)
{
    projectname = std::move(name);
}

QString ProjectInfo::getProjectName()
{
    return projectname;
}

void ProjectInfo::setProjectRemark(QString remark)
{
    projectremark = std::move(remark);
}

QString ProjectInfo::getProjectRemark()
{
    return projectremark;
}
