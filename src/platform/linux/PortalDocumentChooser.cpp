// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/PortalDocumentChooser.h"

#include "platform/linux/PortalFilter.h"

#include <utility>

namespace reelsmith {

namespace {

using Outcome = PortalRequest::Outcome;

DocumentChooser::Answer meaning(Outcome outcome) {
    switch (outcome) {
    case Outcome::Granted:
        return DocumentChooser::Answer::Picked;
    case Outcome::Cancelled:
        return DocumentChooser::Answer::Cancelled;
    case Outcome::Failed:
        break;
    }
    return DocumentChooser::Answer::Unavailable;
}

} // namespace

void PortalDocumentChooser::choose(const QString& title, const QList<Kind>& kinds, Completion completion) {
    m_dialog.request(QStringLiteral("OpenFile"), {title}, {{QStringLiteral("filters"), portalFilters(kinds)}},
                     [completion = std::move(completion)](const PortalRequest::Answer& answer) {
                         const QUrl file = PortalRequest::pickedFile(answer);
                         const bool isEmptyHanded = answer.outcome == Outcome::Granted && file.isEmpty();
                         completion(isEmptyHanded ? Answer::Cancelled : meaning(answer.outcome), file);
                     });
}

} // namespace reelsmith
