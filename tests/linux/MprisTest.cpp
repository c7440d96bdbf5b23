// SPDX-License-Identifier: GPL-3.0-or-later
#include "fakes/ScriptedPlayback.h"
#include "linux/DesktopTest.h"

#include "platform/avfoundation/AVPlayer.h"
#include "platform/linux/mpris/MprisNowPlaying.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusPendingCall>

using namespace reelsmith;

namespace {

/// What other programs hear of a player.
class Listener : public QObject {
    Q_OBJECT

public:
    QVariantMap m_changes;
    std::vector<qlonglong> m_jumps; // empty QLists of numbers cannot be compared under the sanitizers

public slots:
    void propertiesChanged(const QString&, const QVariantMap& changes, const QStringList&) {
        m_changes.insert(changes);
    }
    void seeked(qlonglong position) { m_jumps.push_back(position); }
};

/// A player of a minute's video on the bus, and a program that steers it.
class Mpris : public DesktopTest {
protected:
    static constexpr auto interface = "org.mpris.MediaPlayer2.Player";

    Mpris() {
        AVPlayer::setPlaybackFactory([] { return std::make_unique<ScriptedPlayback>(); });
        m_player = std::make_unique<AVPlayer>(QUrl("file:///Summer.mp4"));
        m_nowPlaying.begin(*m_player);
        QDBusConnection bus = m_desktop.bus();
        bus.connect({}, MprisNowPlaying::path, "org.freedesktop.DBus.Properties", "PropertiesChanged",
                    &m_listener, SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
        bus.connect({}, MprisNowPlaying::path, interface, "Seeked", &m_listener, SLOT(seeked(qlonglong)));
    }
    ~Mpris() override {
        AVPlayer::setPlaybackFactory([] { return std::make_unique<VideoPlayback>(); });
    }

    QDBusMessage call(const QString& of, const QString& method, const QVariantList& arguments) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(MprisNowPlaying::service, MprisNowPlaying::path, of, method);
        message.setArguments(arguments);
        const QDBusPendingCall reply = m_desktop.bus().asyncCall(message);
        EXPECT_TRUE(runLoopUntil([&reply] { return reply.isFinished(); }));
        return reply.reply();
    }
    void steer(const QString& method, const QVariantList& arguments = {}) {
        const QDBusMessage answer = call(interface, method, arguments);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << qPrintable(answer.errorMessage());
    }
    QVariantMap properties(const QString& of) {
        const QVariant answer = call("org.freedesktop.DBus.Properties", "GetAll", {of}).arguments().value(0);
        return qdbus_cast<QVariantMap>(answer);
    }

    Listener m_listener;
    std::unique_ptr<AVPlayer> m_player;
    MprisNowPlaying m_nowPlaying{m_client, "io.reelsmith.Reelsmith"};
};

constexpr qlonglong second = 1'000'000;

} // namespace

TEST_F(Mpris, ItIsSteeredFromOutsideAndTellsWhatChanges) {
    const QDBusObjectPath track("/io/reelsmith/Reelsmith/track");
    const struct {
        const char* method;
        QVariantList arguments;
        const char* status;
        qlonglong position;
        bool jumps;
    } steps[] = {
        {"PlayPause", {}, "Playing", 0, false},
        {"Seek", {70 * second}, "Playing", 60 * second, true},
        {"Seek", {-50 * second}, "Playing", 10 * second, true},
        {"Pause", {}, "Paused", 10 * second, false},
        {"SetPosition", {QVariant::fromValue(track), 20 * second}, "Paused", 20 * second, true},
        {"SetPosition", {QVariant::fromValue(track), 61 * second}, "Paused", 20 * second, false},
        {"SetPosition",
         {QVariant::fromValue(QDBusObjectPath("/other")), second},
         "Paused",
         20 * second,
         false},
        {"Play", {}, "Playing", 20 * second, false},
        {"PlayPause", {}, "Paused", 20 * second, false},
        {"Stop", {}, "Paused", 0, true},
    };
    for (const auto& step : steps) {
        SCOPED_TRACE(step.method);
        const QString before = properties(interface).value("PlaybackStatus").toString();
        m_listener.m_changes.clear();
        m_listener.m_jumps.clear();
        steer(step.method, step.arguments);
        EXPECT_EQ(properties(interface).value("PlaybackStatus"), step.status);
        EXPECT_EQ(properties(interface).value("Position"), step.position);
        EXPECT_EQ(m_listener.m_changes.value("PlaybackStatus").toString(),
                  before == step.status ? "" : step.status);
        EXPECT_EQ(m_listener.m_jumps, std::vector<qlonglong>(step.jumps ? 1 : 0, step.position));
    }
}

TEST_F(Mpris, ItSaysWhatPlaysUntilItHasGone) {
    const QVariantMap player = properties(interface);
    const auto metadata = qdbus_cast<QVariantMap>(player.value("Metadata"));
    EXPECT_EQ(metadata.value("xesam:title"), "Summer.mp4");
    EXPECT_EQ(metadata.value("mpris:length"), 60 * second);
    EXPECT_TRUE(player.value("CanPlay").toBool() && player.value("CanSeek").toBool());
    EXPECT_EQ(properties("org.mpris.MediaPlayer2").value("DesktopEntry"), "io.reelsmith.Reelsmith");
    m_player->setMuted(true);
    EXPECT_EQ(properties(interface).value("Volume"), 0.0);
    EXPECT_EQ(m_listener.m_changes, (QVariantMap{{"Volume", 0.0}}));
    m_nowPlaying.end();
    EXPECT_FALSE(m_client.interface()->isServiceRegistered(MprisNowPlaying::service));
    EXPECT_EQ(call(interface, "Play", {}).type(), QDBusMessage::ErrorMessage);
}

#include "MprisTest.moc"
