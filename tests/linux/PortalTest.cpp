// SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/DesktopTest.h"
#include "linux/UserFile.h"

#include "platform/linux/AppStreamPage.h"
#include "platform/linux/PortalDocumentChooser.h"
#include "platform/linux/PortalFilter.h"
#include "platform/linux/PortalLinkOpener.h"
#include "platform/linux/PortalMailDrafts.h"

#include <QDesktopServices>
#include <QTimer>

using namespace reelsmith;

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

const QString chooseFile = QStringLiteral("org.freedesktop.portal.FileChooser.OpenFile");
const QString openUri = QStringLiteral("org.freedesktop.portal.OpenURI.OpenURI");
const QString composeEmail = QStringLiteral("org.freedesktop.portal.Email.ComposeEmail");

class Portal : public DesktopTest {
protected:
    struct Chosen {
        DocumentChooser::Answer answer;
        QUrl file;
        bool operator==(const Chosen&) const = default;
    };

    void choose() {
        m_chooser->choose(
            QStringLiteral("Choose a video"),
            {{QStringLiteral("Videos"), {QStringLiteral("*.mkv")}, {QStringLiteral("video/mp4")}}},
            [this](DocumentChooser::Answer answer, const QUrl& file) {
                m_chosen.append({answer, file});
            });
        EXPECT_TRUE(m_chosen.isEmpty());
    }
    bool isChosen() {
        return runLoopUntil([this] { return !m_chosen.isEmpty(); });
    }

    bool open(LinkOpener& links, const QUrl& url) {
        std::optional<bool> result;
        links.open(url, [&result](bool isOpened) { result = isOpened; });
        EXPECT_FALSE(result);
        EXPECT_TRUE(runLoopUntil([&result] { return result.has_value(); }));
        return result.value_or(false);
    }

    std::unique_ptr<DocumentChooser> m_chooser = std::make_unique<PortalDocumentChooser>(m_client);
    QList<Chosen> m_chosen;
};

// Stands in for the desktop's own tools.
class UrlHandler : public QObject {
    Q_OBJECT
public:
    UrlHandler() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "take"); }
    ~UrlHandler() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }
    QList<QUrl> urls;
public slots:
    void take(const QUrl& url) { urls.append(url); }
};

} // namespace

TEST_F(Portal, TheChooserTellsPickedFromCancelledFromUnavailable) {
    const QUrl picked(QStringLiteral("file:///videos/a%20film.mkv"));
    const QVariantMap uris{{QStringLiteral("uris"), QStringList{picked.toString(QUrl::FullyEncoded)}}};
    const struct {
        const char* name;
        uint code;
        QVariantMap results;
        Chosen expected;
    } cases[] = {
        {"picked", 0, uris, {DocumentChooser::Answer::Picked, picked}},
        {"picked nothing", 0, {}, {DocumentChooser::Answer::Cancelled, {}}},
        {"cancelled", 1, uris, {DocumentChooser::Answer::Cancelled, {}}},
        {"failed", 2, {}, {DocumentChooser::Answer::Unavailable, {}}},
    };
    choose();
    EXPECT_TRUE(isChosen());
    EXPECT_EQ(m_chosen, (QList<Chosen>{{DocumentChooser::Answer::Unavailable, {}}})) << "without a portal";
    m_desktop.appear(portal);
    for (const auto& each : cases) {
        m_chosen.clear();
        m_desktop.answerRequest(chooseFile, each.code, each.results);
        choose();
        EXPECT_TRUE(isChosen());
        EXPECT_EQ(m_chosen, QList<Chosen>{each.expected}) << each.name;
    }
}

TEST_F(Portal, TheChooserIsAskedForTheKindsOfFilesWhateverTheirCase) {
    m_desktop.appear(portal);
    m_desktop.answerRequest(chooseFile, 1);
    choose();
    EXPECT_TRUE(isChosen());
    const QDBusMessage call = m_desktop.calls(QStringLiteral("OpenFile")).value(0);
    EXPECT_EQ(call.signature(), QStringLiteral("ssa{sv}"));
    EXPECT_EQ(call.arguments().value(1), QStringLiteral("Choose a video"));
    const auto options = qdbus_cast<QVariantMap>(call.arguments().value(2));
    const auto argument = options.value(QStringLiteral("filters")).value<QDBusArgument>();
    EXPECT_EQ(argument.currentSignature(), QStringLiteral("a(sa(us))"));
    const auto filters = qdbus_cast<QList<PortalFilter>>(argument);
    ASSERT_EQ(filters.size(), 1);
    EXPECT_EQ(filters[0].name, QStringLiteral("Videos"));
    ASSERT_EQ(filters[0].rules.size(), 2);
    EXPECT_EQ(filters[0].rules[0].text, QStringLiteral("*.[mM][kK][vV]"));
    EXPECT_EQ(filters[0].rules[0].isMimeType, 0U);
    EXPECT_EQ(filters[0].rules[1].text, QStringLiteral("video/mp4"));
    EXPECT_EQ(filters[0].rules[1].isMimeType, 1U);
}

TEST_F(Portal, ADialogIsTakenAwayWhenCancelledOrNoLongerWanted) {
    m_desktop.appear(portal);
    m_desktop.acceptRequest(chooseFile);
    choose();
    ASSERT_TRUE(runLoopUntil([this] { return m_desktop.isCalled(QStringLiteral("OpenFile")); }));
    m_chooser->cancel();
    EXPECT_TRUE(isChosen());
    EXPECT_EQ(m_chosen, (QList<Chosen>{{DocumentChooser::Answer::Cancelled, {}}}));
    ASSERT_TRUE(runLoopUntil([this] { return m_desktop.isCalled(QStringLiteral("Close")); }));
    const QString request = m_desktop.calls(QStringLiteral("Close"))[0].path();
    EXPECT_TRUE(request.startsWith(QLatin1String("/org/freedesktop/portal/desktop/request/")))
        << qPrintable(request);

    m_chosen.clear();
    choose();
    m_chooser.reset();
    EXPECT_TRUE(runLoopUntil([this] { return m_desktop.calls(QStringLiteral("Close")).size() == 2; }));
    EXPECT_TRUE(m_chosen.isEmpty());
}

TEST_F(Portal, ADialogWhosePortalEndsIsUnavailable) {
    m_desktop.appear(portal);
    m_desktop.acceptRequest(chooseFile);
    choose();
    ASSERT_TRUE(runLoopUntil([this] { return m_desktop.isCalled(QStringLiteral("OpenFile")); }));
    m_desktop.vanish(portal);
    EXPECT_TRUE(isChosen());
    EXPECT_EQ(m_chosen, (QList<Chosen>{{DocumentChooser::Answer::Unavailable, {}}}));
}

TEST_F(Portal, ALinkThatThePortalLeavesUnansweredIsOpenedByTheDesktopsTools) {
    const QUrl url(QStringLiteral("https://example.org/a%20b?c"));
    UrlHandler tools;
    PortalLinkOpener patient(m_client, hours(1));
    EXPECT_TRUE(open(patient, url)) << "without a portal";
    EXPECT_EQ(tools.urls, QList<QUrl>{url});

    m_desktop.appear(portal);
    m_desktop.answerRequest(openUri, 0);
    EXPECT_TRUE(open(patient, url));
    EXPECT_EQ(m_desktop.calls(QStringLiteral("OpenURI"))[0].arguments().value(1),
              url.toString(QUrl::FullyEncoded));
    m_desktop.answerRequest(openUri, 1);
    EXPECT_FALSE(open(patient, url)) << "the user chose no program";
    EXPECT_EQ(tools.urls.size(), 1);

    m_desktop.acceptRequest(openUri);
    PortalLinkOpener impatient(m_client, milliseconds(1));
    EXPECT_TRUE(open(impatient, url));
    EXPECT_EQ(tools.urls.size(), 2);
    EXPECT_TRUE(runLoopUntil([this] { return m_desktop.isCalled(QStringLiteral("Close")); }));
}

TEST_F(Portal, AUserWhoIsAskedWhetherToTakeAKnownProgramHasAllTheTime) {
    const UserFile program(QStringLiteral("data/applications/browser.desktop"), "");
    const UserFile associations(QStringLiteral("config/mimeapps.list"),
                                "[Default Applications]\nx-scheme-handler/https=browser.desktop\n");
    m_desktop.appear(portal);
    m_desktop.acceptRequest(openUri);
    PortalLinkOpener links(m_client, milliseconds(1));
    std::optional<bool> isOpened;
    links.open(QUrl(QStringLiteral("https://example.org")), [&isOpened](bool result) { isOpened = result; });
    int ticks = 0;
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout, [&ticks] { ++ticks; });
    clock.start(1);
    ASSERT_TRUE(runLoopUntil([&ticks] { return ticks > 50; }));
    EXPECT_FALSE(isOpened);
    m_desktop.respond(m_desktop.calls(QStringLiteral("OpenURI")).value(0), 0);
    EXPECT_TRUE(runLoopUntil([&isOpened] { return isOpened.has_value(); }));
    EXPECT_TRUE(isOpened.value_or(false));
}

TEST_F(Portal, TheStorePageIsALinkToTheApplicationsIdentifier) {
    m_desktop.appear(portal);
    m_desktop.answerRequest(openUri, 0);
    AppStreamPage page(std::make_shared<PortalLinkOpener>(m_client), QStringLiteral("io.example.App"));
    std::optional<bool> isShown;
    page.open([&isShown](bool isOpened) { isShown = isOpened; });
    EXPECT_TRUE(runLoopUntil([&isShown] { return isShown.has_value(); }));
    EXPECT_TRUE(isShown.value_or(false));
    EXPECT_EQ(m_desktop.calls(QStringLiteral("OpenURI"))[0].arguments().value(1),
              QStringLiteral("appstream:io.example.App"));
}

TEST_F(Portal, AMailBecomesADraftByThePortalOrByALink) {
    m_desktop.appear(portal);
    m_desktop.answerRequest(openUri, 0);
    PortalMailDrafts drafts(m_client, std::make_shared<PortalLinkOpener>(m_client));
    const struct {
        uint code;
        MailDrafts::Outcome expected;
    } cases[] = {{0, MailDrafts::Outcome::Saved},
                 {1, MailDrafts::Outcome::Cancelled},
                 {2, MailDrafts::Outcome::Saved}};
    for (const auto& each : cases) {
        m_desktop.answerRequest(composeEmail, each.code);
        std::optional<MailDrafts::Outcome> outcome;
        drafts.compose(
            {{QStringLiteral("a+b@example.org")}, QStringLiteral("It & them"), QStringLiteral("Hi\n")},
            [&outcome](MailDrafts::Outcome result) { outcome = result; });
        EXPECT_TRUE(runLoopUntil([&outcome] { return outcome.has_value(); }));
        EXPECT_EQ(outcome, each.expected) << each.code;
    }
    const auto options =
        qdbus_cast<QVariantMap>(m_desktop.calls(QStringLiteral("ComposeEmail"))[0].arguments().value(1));
    EXPECT_EQ(options.value(QStringLiteral("addresses")).toStringList(),
              QStringList{QStringLiteral("a+b@example.org")});
    EXPECT_EQ(options.value(QStringLiteral("subject")), QStringLiteral("It & them"));
    EXPECT_EQ(options.value(QStringLiteral("body")), QStringLiteral("Hi\n"));
    ASSERT_EQ(m_desktop.calls(QStringLiteral("OpenURI")).size(), 1);
    EXPECT_EQ(m_desktop.calls(QStringLiteral("OpenURI"))[0].arguments().value(1),
              QStringLiteral("mailto:a%2Bb@example.org?subject=It%20%26%20them&body=Hi%0A"));
}

#include "PortalTest.moc"
