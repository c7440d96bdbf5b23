// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace reelsmith {

/// The platform's name for movies of all kinds.
inline const QString kUTTypeMovie = QStringLiteral("public.movie");

/// Kinds of documents by the platform's names. Any thread.
class DocumentTypes {
public:
    /// Names that mean nothing here are passed over.
    explicit DocumentTypes(const QStringList& names);

    /// Whether a file is of one of the kinds, judged by its name.
    bool contain(const QString& fileName) const;

    /// Such as "video/x-matroska", or "video/*".
    const QStringList& mimeTypes() const { return m_mimeTypes; }

private:
    QStringList m_mimeTypes;
};

} // namespace reelsmith
