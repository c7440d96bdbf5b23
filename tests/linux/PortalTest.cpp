// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"

#include "platform/linux/AppStreamPage.h"
#include "platform/linux/PortalAppearance.h"
#include "platform/linux/PortalDocumentChooser.h"
#include "platform/linux/PortalFilter.h"
#include "platform/linux/PortalLinkOpener.h"
#include "platform/linux/PortalMailDrafts.h"

#include <QDesktopServices>
#include <QTimer>

using namespace reelsmith;

namespace {

using std::chrono::milliseconds;
using Answer = DocumentChooser::Answer;
using Chosen = std::pair<Answer, QUrl>;

constexpr auto chooseFile = "org.freedesktop.portal.FileChooser.OpenFile";
constexpr auto openUri = "org.freedesktop.portal.OpenURI.OpenURI";

class Portal : public DesktopTest {
protected:
    void choose() {
        m_chooser->choose("Choose a video", {{"Videos", {"*.mkv"}, {"video/mp4"}}},
                          [this](Answer answer, const QUrl& file) {
                              m_chosen.append({answer, file});
                          });
        EXPECT_TRUE(m_chosen.isEmpty());
    }
    QList<Chosen> chosen() {
        EXPECT_TRUE(runLoopUntil([this] { return !m_chosen.isEmpty(); }));
        return std::exchange(m_chosen, {});
    }
    static bool open(LinkOpener& links, const QUrl& url) {
        return end<bool>([&](auto completion) { links.open(url, completion); });
    }

    std::unique_ptr<DocumentChooser> m_chooser = std::make_unique<PortalDocumentChooser>(m_client);
    QList<Chosen> m_chosen;
};

// Stands in for the desktop's own tools.
class UrlHandler : public QObject {
    Q_OBJECT
public:
    UrlHandler() { QDesktopServices::setUrlHandler("https", this, "take"); }
    ~UrlHandler() override { QDesktopServices::unsetUrlHandler("https"); }
    int count = 0;
public slots:
    void take(const QUrl&) { ++count; }
};

} // namespace

TEST_F(Portal, TheChooserAsksForKindsOfFilesInAnyCaseAndTellsPickedFromCancelledFromUnavailable) {
    const QVariantMap uris{{"uris", QStringList{"file:///videos/a%20film.mkv"}}};
    const struct {
        uint code;
        QVariantMap results;
        Chosen expected;
    } cases[] = {{0, uris, {Answer::Picked, QUrl("file:///videos/a%20film.mkv")}},
                 {0, {}, {Answer::Cancelled, {}}},
                 {1, uris, {Answer::Cancelled, {}}},
                 {2, {}, {Answer::Cancelled, {}}}};
    choose();
    EXPECT_EQ(chosen(), (QList<Chosen>{{Answer::Unavailable, {}}})) << "without a portal";
    m_desktop.appear(portal);
    for (const auto& each : cases) {
        m_desktop.answerRequest(chooseFile, each.code, each.results);
        choose();
        EXPECT_EQ(chosen(), QList<Chosen>{each.expected}) << each.code;
    }

    EXPECT_EQ(m_desktop.argument("OpenFile", 1), "Choose a video");
    const auto argument = m_desktop.option("OpenFile", "filters").value<QDBusArgument>();
    EXPECT_EQ(argument.currentSignature(), "a(sa(us))");
    const auto filters = qdbus_cast<QList<PortalFilter>>(argument);
    ASSERT_TRUE(filters.size() == 1 && filters[0].rules.size() == 2);
    EXPECT_EQ(filters[0].name, "Videos");
    const auto& [glob, type] = std::pair(filters[0].rules[0], filters[0].rules[1]);
    EXPECT_TRUE(glob.text == "*.[mM][kK][vV]" && glob.isMimeType == 0) << qPrintable(glob.text);
    EXPECT_TRUE(type.text == "video/mp4" && type.isMimeType == 1) << qPrintable(type.text);
}

TEST_F(Portal, ADialogIsTakenAwayWhenCancelledOrNoLongerWantedAndEndsWithItsPortal) {
    m_desktop.appear(portal);
    m_desktop.answerRequest(chooseFile, std::nullopt);
    choose();
    ASSERT_TRUE(isCalled("OpenFile"));
    m_chooser->cancel();
    EXPECT_EQ(chosen(), (QList<Chosen>{{Answer::Cancelled, {}}}));
    ASSERT_TRUE(isCalled("Close"));
    const QString token = m_desktop.option("OpenFile", "handle_token").toString();
    EXPECT_TRUE(m_desktop.calls("Close")[0].path().endsWith('/' + token));

    choose();
    ASSERT_TRUE(isCalled("OpenFile", 2));
    m_desktop.vanish(portal);
    EXPECT_EQ(chosen(), (QList<Chosen>{{Answer::Unavailable, {}}}));

    m_desktop.appear(portal);
    choose();
    m_chooser.reset();
    EXPECT_TRUE(isCalled("Close", 2));
    EXPECT_TRUE(m_chosen.isEmpty());
}

TEST_F(Portal, ALinkThatThePortalCannotOpenIsOpenedByTheDesktopsTools) {
    const QUrl url("https://example.org/a%20b?c");
    UrlHandler tools;
    PortalLinkOpener links(m_client, milliseconds(1));
    EXPECT_TRUE(open(links, url)) << "without a portal";
    EXPECT_EQ(tools.count, 1);
    m_desktop.appear(portal);
    m_desktop.answerRequest(openUri, std::nullopt);
    EXPECT_TRUE(open(links, url)) << "never answered";
    EXPECT_EQ(tools.count, 2);
    EXPECT_TRUE(isCalled("Close"));
    m_desktop.answerRequest(openUri, 1);
    EXPECT_FALSE(open(links, url)) << "no program was chosen";
    m_desktop.answerRequest(openUri, 0);
    EXPECT_TRUE(open(links, url));
    EXPECT_EQ(m_desktop.argument("OpenURI", 1), "https://example.org/a%20b?c");
    EXPECT_EQ(tools.count, 2);
}

TEST_F(Portal, AUserWhoIsAskedWhetherToTakeAKnownProgramHasAllTheTime) {
    writeFile(m_home.filePath("DATA_HOME/applications/store.desktop"), "");
    writeFile(m_home.filePath("CONFIG_HOME/mimeapps.list"),
              "[Default Applications]\nx-scheme-handler/appstream=store.desktop\n");
    m_desktop.appear(portal);
    m_desktop.answerRequest(openUri, std::nullopt);
    AppStreamPage page(std::make_shared<PortalLinkOpener>(m_client, milliseconds(1)), "io.example.App");
    int ticks = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&] {
        if (++ticks == 50)
            m_desktop.respond(m_desktop.calls("OpenURI").value(0), 0);
    });
    clock.start(1);
    EXPECT_TRUE(end<bool>([&page](auto completion) { page.open(completion); }));
    EXPECT_GE(ticks, 50);
    EXPECT_EQ(m_desktop.argument("OpenURI", 1), "appstream:io.example.App");
}

TEST_F(Portal, AMailBecomesADraftByThePortalOrByALink) {
    using Outcome = MailDrafts::Outcome;
    m_desktop.appear(portal);
    m_desktop.answerRequest(openUri, 0);
    PortalMailDrafts drafts(m_client, std::make_shared<PortalLinkOpener>(m_client));
    const std::pair<uint, Outcome> cases[] = {
        {0, Outcome::Saved}, {1, Outcome::Cancelled}, {2, Outcome::Saved}};
    for (const auto& [code, expected] : cases) {
        m_desktop.answerRequest("org.freedesktop.portal.Email.ComposeEmail", code);
        EXPECT_EQ(end<Outcome>([&drafts](auto completion) {
                      drafts.compose({{"a+b@example.org"}, "It & them", "Hi\n"}, completion);
                  }),
                  expected);
    }
    EXPECT_EQ(m_desktop.calls("OpenURI").size(), 1);
    EXPECT_EQ(m_desktop.argument("OpenURI", 1),
              "mailto:a%2Bb@example.org?subject=It%20%26%20them&body=Hi%0A");
}

TEST_F(Portal, TheAppearanceIsTheUsualOneWhereNobodyKnows) {
    PortalAppearance appearance(m_client);
    bool isTold = false;
    appearance.setObserver([&isTold] { isTold = true; });
    EXPECT_TRUE(runLoopUntil([&isTold] { return isTold; }));
    EXPECT_EQ(appearance.settings(), DesktopAppearance::Settings());
}

TEST_F(Portal, TheWishForContrastIsFollowed) {
    m_desktop.appear(portal);
    PortalAppearance appearance(m_client);
    for (const uint contrast : {1U, 2U}) {
        QDBusMessage change = QDBusMessage::createSignal("/org/freedesktop/portal/desktop",
                                                         "org.freedesktop.portal.Settings", "SettingChanged");
        change << "org.freedesktop.appearance"
               << "contrast" << QVariant::fromValue(QDBusVariant(contrast));
        m_desktop.bus().send(change);
        EXPECT_TRUE(runLoopUntil([&] { return appearance.settings().hasHighContrast == (contrast == 1); }));
    }
}

#include "PortalTest.moc"
