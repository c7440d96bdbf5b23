// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/services/measurement/CollectionSwitch.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtGlobal>

namespace reelsmith {

bool CollectionSwitch::isOn() const {
    return !QFile::exists(m_offFile);
}

void CollectionSwitch::setOn(bool isOn) const {
    QFile file(m_offFile);
    QDir().mkpath(QFileInfo(file).path());
    const bool isKept = isOn ? file.remove() || !file.exists() : file.open(QIODevice::WriteOnly);
    if (!isKept)
        qWarning("Measurement: the switch cannot be kept: %s", qUtf8Printable(file.errorString()));
}

} // namespace reelsmith
