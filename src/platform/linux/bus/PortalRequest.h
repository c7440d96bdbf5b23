// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QUrl>
#include <QVariantList>
#include <QVariantMap>
#include <chrono>
#include <functional>
#include <optional>

namespace reelsmith {

/// One request to the desktop portal. The portal shows what it has to show and answers with a signal, as late
/// as the user likes. Main thread.
class PortalRequest : public QObject {
    Q_OBJECT

public:
    struct Call {
        QString interface; ///< without its prefix, such as "FileChooser"
        QString method;
        QVariantList arguments; ///< those between the parent window and the options
        QVariantMap options;
        std::optional<std::chrono::milliseconds> limit; ///< on the answer, once the request has been accepted
    };
    enum class Outcome {
        Granted,
        Cancelled, ///< by the user, or by `cancel`
        Failed,    ///< also: there is no portal, or no answer within the limit
    };
    struct Answer {
        Outcome outcome;
        QVariantMap results;
        QString error; ///< for a failure, in words
    };
    using Completion = std::function<void(const Answer& answer)>;

    /// Sends a request. It calls `completion` once, after this has returned, and then deletes itself. A
    /// request that is deleted before is withdrawn and calls nothing.
    static PortalRequest* send(const QDBusConnection& bus, const Call& call, Completion completion,
                               QObject* parent);
    ~PortalRequest() override;

    /// Withdraws the request, with any dialog of it; it completes as cancelled.
    void cancel();

    /// The file that a granted request for one has picked; otherwise empty.
    static QUrl pickedFile(const Answer& answer);

    /// A call of the portal's own object, for what is no request.
    static QDBusMessage message(const QString& fullInterface, const QString& method);
    static QString interfaceName(const QString& interface);

private slots:
    void respond(uint code, const QVariantMap& results);

private:
    PortalRequest(const QDBusConnection& bus, Completion completion, QObject* parent);

    void send(Call call);
    void withdraw();
    void fail(const QString& error) { finish({Outcome::Failed, {}, error}); }
    void finish(const Answer& answer);

    QDBusConnection m_bus;
    const QString m_token;
    const QString m_path;
    Completion m_completion;
    bool m_isFileDialog = false;
    QTimer m_limit;
};

} // namespace reelsmith
