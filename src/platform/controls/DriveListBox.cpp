// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/controls/DriveListBox.h"

#include "platform/files/Drives.h"

#include <QFile>
#include <QSocketNotifier>
#include <QStorageInfo>

namespace platform {
namespace {

// The volume's label, if the drive is a volume and has one.
QString LabelOf(const Drive& drive) {
    const QString root = QString::fromStdString(drive.root.native());
    const QStorageInfo volume(root);
    return volume.rootPath() == root ? volume.name() : QString();
}

} // namespace

DriveListBox::DriveListBox(QWidget* parent) : QComboBox(parent) {
    Refresh();
    setCurrentIndex(-1);
    connect(this, &QComboBox::currentIndexChanged, this, &DriveListBox::Changed);
    // The system marks this file whenever a volume is mounted or unmounted.
    auto* mounts = new QFile(QStringLiteral("/proc/self/mountinfo"), this);
    if (!mounts->open(QIODevice::ReadOnly))
        return;
    auto* notifier = new QSocketNotifier(mounts->handle(), QSocketNotifier::Exception, this);
    connect(notifier, &QSocketNotifier::activated, this, &DriveListBox::Refresh);
}

QString DriveListBox::Drive() const {
    return currentData().toString();
}

void DriveListBox::Drive(const QString& drive) {
    setCurrentIndex(findData(drive));
}

void DriveListBox::Refresh() {
    const QString chosen = Drive();
    m_refreshing = true;
    clear();
    for (const platform::Drive& drive : CurrentDrives().List()) {
        const QString value = QLatin1Char(drive.letter) + QStringLiteral(":");
        const QString label = LabelOf(drive);
        addItem(label.isEmpty() ? value : QStringLiteral("%1 [%2]").arg(value, label), value);
    }
    Drive(chosen);
    m_refreshing = false;
    Changed();
}

void DriveListBox::Changed() {
    if (m_refreshing || m_drive == Drive())
        return;
    m_drive = Drive();
    Q_EMIT Change();
}

} // namespace platform
