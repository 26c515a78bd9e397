// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "firmwarepage.h"

#include "dialogs/question.h"
#include "workspace/unitworkspace.h"

#include <imagechecks.h>

#include <QtCore/QEvent>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

using namespace QuadrelWorkspace;

namespace {

/** Milliseconds that a unit has to come back. */
constexpr int returnTime = 60000;

QByteArray imageOf(const QString& path, QStringList& doubts)
{
    QString error;
    const std::optional<QByteArray> image = readImage(path, error);
    if (image)
        error = imageDoubt(path, *image);
    if (!error.isEmpty())
        doubts.append(error);
    return image.value_or(QByteArray());
}

} // namespace

FirmwarePage::FirmwarePage(UnitWorkspace& workspace, QWidget* parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_hint(new QLabel(this))
    , m_doubts(new QLabel(this))
    , m_upgrade(new QPushButton(this))
{
    m_hint->setWordWrap(true);
    m_doubts->setWordWrap(true);
    m_doubts->setTextFormat(Qt::PlainText);
    auto* layout = new QGridLayout(this);
    layout->addWidget(m_hint, 0, 0, 1, 3);
    m_streamed = addFile(layout);
    m_addressed = addFile(layout);
    m_descriptor = addFile(layout);
    layout->addWidget(m_doubts, layout->rowCount(), 0, 1, 3);
    layout->addWidget(m_upgrade, layout->rowCount(), 0, 1, 3, Qt::AlignLeft);
    layout->setRowStretch(layout->rowCount(), 1);
    connect(m_upgrade, &QPushButton::clicked, this, &FirmwarePage::askToUpgrade);
    connect(&workspace, &UnitWorkspace::stateChanged, this, &FirmwarePage::update);
    connect(&workspace, &UnitWorkspace::started, this, &FirmwarePage::update);
    retranslate();
}

FirmwarePage::File FirmwarePage::addFile(QGridLayout* layout)
{
    const File file{new QLabel(this), new QLineEdit(this), new QPushButton(this)};
    const int row = layout->rowCount();
    layout->addWidget(file.label, row, 0);
    layout->addWidget(file.path, row, 1);
    layout->addWidget(file.choose, row, 2);
    connect(file.path, &QLineEdit::textChanged, this, [this] {
        m_doubts->clear();
        update();
    });
    connect(file.choose, &QPushButton::clicked, this, [this, file] {
        const QString path = QFileDialog::getOpenFileName(this, file.label->text());
        if (!path.isEmpty())
            file.path->setText(path);
    });
    return file;
}

void FirmwarePage::setFiles(
    const QString& streamed, const QString& addressed, const QString& descriptor)
{
    m_streamed.path->setText(streamed);
    m_addressed.path->setText(addressed);
    m_descriptor.path->setText(descriptor);
}

void FirmwarePage::askToUpgrade()
{
    QStringList doubts;
    UpgradeImages images;
    images.streamed = imageOf(m_streamed.path->text(), doubts);
    images.addressed = imageOf(m_addressed.path->text(), doubts);
    const auto& device = m_workspace.contents().device;
    const QString descriptorPath = m_descriptor.path->text();
    if (!descriptorPath.isEmpty()) {
        QString error;
        images.descriptor = readDescriptor(descriptorPath, error);
        if (!images.descriptor)
            doubts.append(error);
        else if (device)
            doubts += descriptorDoubts(
                *images.descriptor, static_cast<unsigned short>(device->modelId), device->version);
    }
    m_doubts->setText(doubts.join(QLatin1Char('\n')));
    if (!doubts.isEmpty())
        return;
    ask(this, tr("Firmware"),
        tr("Replace the firmware of %1? The unit has version %2, and restarts afterwards.")
            .arg(m_workspace.title(), device ? device->version : QStringLiteral("?")),
        tr("Replace"), [this, images] { m_workspace.upgrade(images, returnTime); });
}

void FirmwarePage::update()
{
    const bool hasFiles = !m_streamed.path->text().isEmpty() && !m_addressed.path->text().isEmpty();
    m_upgrade->setEnabled(m_workspace.address() && !m_workspace.isBusy() && hasFiles
        && m_workspace.contents().device.has_value());
}

void FirmwarePage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void FirmwarePage::retranslate()
{
    const auto setTexts = [this](const File& file, const QString& title) {
        file.label->setText(title);
        file.path->setAccessibleName(title);
        file.choose->setText(tr("Choose..."));
        file.choose->setAccessibleName(tr("Choose: %1").arg(title));
    };
    m_hint->setText(tr("Both images are written, then the unit restarts. With a descriptor, model "
                       "and version are compared first. Read the unit before."));
    setTexts(m_streamed, tr("Streamed image"));
    setTexts(m_addressed, tr("Addressed image"));
    setTexts(m_descriptor, tr("Descriptor (optional)"));
    m_upgrade->setText(tr("Replace the firmware..."));
    update();
}
