// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/PortalMailDrafts.h"

#include "platform/linux/MimeHandlers.h"

#include <QUrl>
#include <utility>

namespace reelsmith {

namespace {

QUrl mailtoUrl(const MailDrafts::Draft& draft) {
    const auto encoded = [](const QString& text) { return text.toUtf8().toPercentEncoding(); };
    QByteArrayList recipients;
    for (const QString& recipient : draft.recipients)
        recipients.append(recipient.toUtf8().toPercentEncoding("@"));
    return QUrl::fromEncoded("mailto:" + recipients.join(',') + "?subject=" + encoded(draft.subject) +
                             "&body=" + encoded(draft.body));
}

} // namespace

bool PortalMailDrafts::canSendMail() const {
    return mimehandlers::hasMailProgram();
}

void PortalMailDrafts::compose(const Draft& draft, Completion completion) {
    const QVariantMap options{{QStringLiteral("addresses"), draft.recipients},
                              {QStringLiteral("subject"), draft.subject},
                              {QStringLiteral("body"), draft.body}};
    m_portal.request(QStringLiteral("ComposeEmail"), {}, options,
                     [draft, links = m_linkOpener,
                      completion = std::move(completion)](const PortalRequest::Answer& answer) {
                         switch (answer.outcome) {
                         case PortalRequest::Outcome::Granted:
                             completion(Outcome::Saved);
                             break;
                         case PortalRequest::Outcome::Cancelled:
                             completion(Outcome::Cancelled);
                             break;
                         case PortalRequest::Outcome::Failed:
                             links->open(mailtoUrl(draft), [completion](bool isOpened) {
                                 completion(isOpened ? Outcome::Saved : Outcome::Failed);
                             });
                         }
                     });
}

} // namespace reelsmith
