// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/sharing/FileCopy.h"

#include "platform/foundation/DispatchQueue.h"

#include <QFile>
#include <QSaveFile>
#include <utility>

namespace reelsmith {

namespace {

constexpr qint64 pieceSizeBytes = 1 << 20;

} // namespace

std::shared_ptr<FileCopy> FileCopy::start(const QDBusUnixFileDescriptor& source,
                                          const QString& destinationPath,
                                          FileSharing::Completion completion) {
    auto copy = std::make_shared<FileCopy>();
    DispatchQueue::global(QualityOfService::UserInitiated)
        .async([copy, source, destinationPath, completion = std::move(completion)] {
            const End end = copy->run(source, destinationPath);
            DispatchQueue::main().async([completion, end] { completion(end.outcome, end.error); });
        });
    return copy;
}

FileCopy::End FileCopy::run(const QDBusUnixFileDescriptor& source, const QString& destinationPath) const {
    using Outcome = FileSharing::Outcome;
    QFile original;
    if (!original.open(source.fileDescriptor(), QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {Outcome::Failed, original.errorString()};
    QSaveFile result(destinationPath);
    if (!result.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return {Outcome::Failed, result.errorString()};
    QByteArray piece(pieceSizeBytes, Qt::Uninitialized);
    for (;;) {
        if (m_isCancelled)
            return {Outcome::Cancelled, {}};
        const qint64 size = original.read(piece.data(), piece.size());
        if (size < 0)
            return {Outcome::Failed, original.errorString()};
        if (size == 0)
            break;
        if (result.write(piece.constData(), size) != size)
            return {Outcome::Failed, result.errorString()};
    }
    if (!result.commit())
        return {Outcome::Failed, result.errorString()};
    return {Outcome::Done, {}};
}

} // namespace reelsmith
