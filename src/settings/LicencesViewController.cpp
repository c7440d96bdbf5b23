// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/LicencesViewController.h"

#include "platform/foundation/FatalError.h"

#include <QFile>
#include <QRegularExpression>

namespace reelsmith {

namespace {

const QString parts = QStringLiteral("Reelsmith: GNU GPL, version 3 or later\n"
                                     "Qt: GNU LGPL, version 3\n"
                                     "FFmpeg, with x264: GNU GPL, version 2 or later\n"
                                     "zimg: WTFPL, version 2\n"
                                     "libseccomp: GNU LGPL, version 2.1\n"
                                     "SQLite: in the public domain\n"
                                     "zlib: zlib licence\n"
                                     "expected: CC0");

// Written for lines of one width, it would break twice on a narrower screen. Headings, which are centred by
// spaces, and copyright lines keep a line of their own.
QString withoutWrapping(const QString& text) {
    static const QRegularExpression ownLine(QStringLiteral("^$|^ {8}|Copyright \\(C\\)"));
    QString joined;
    bool goesOn = false;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        const bool isOwn = line.contains(ownLine);
        joined += QLatin1Char(goesOn && !isOwn ? ' ' : '\n');
        joined += goesOn || isOwn ? line.trimmed() : line;
        goesOn = !isOwn;
    }
    return joined.mid(1);
}

} // namespace

void LicencesViewController::viewDidLoad() {
    setTitle(QStringLiteral("Licences"));
    QFile licence(QStringLiteral(":/LICENSE"));
    if (!licence.open(QIODevice::ReadOnly))
        fatalError("The licence is missing", "settings/LicencesViewController", __LINE__);
    m_partsLabel.setText(parts);
    m_licenceLabel.setText(withoutWrapping(QString::fromUtf8(licence.readAll())));
}

} // namespace reelsmith
