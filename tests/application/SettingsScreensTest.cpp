// SPDX-License-Identifier: GPL-3.0-or-later
#include "Support.h"

#include "fakes/ScriptedMailDrafts.h"
#include "platform/screens/MFMailComposeViewController.h"
#include "platform/screens/PlatformServices.h"
#include "platform/uikit/UIAlertController.h"
#include "settings/Endpoints.h"
#include "settings/FeedbackViewController.h"
#include "settings/LicencesViewController.h"
#include "settings/SettingsViewController.h"
#include "settings/UserSettings.h"

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

/// Notes what it is asked to open.
class LinkList : public LinkOpener {
public:
    void open(const QUrl& url, Completion /*completion*/) override { opened.append(url.toString()); }

    QStringList opened;
};

/// A store in which an application can be rated.
class Store : public StorePage {
    bool isAvailable() const override { return true; }
};

class SettingsScreens : public WholeApplicationTest {
protected:
    SettingsScreens() {
        UIApplication::shared().setLinkOpener(m_links);
        auto mail = std::make_unique<ScriptedMailDrafts>();
        m_mail = mail.get();
        PlatformServices::install({.mailDrafts = std::move(mail)});
        launch();
    }

    SettingsViewController& showSettings() {
        tabs().setSelectedIndex(0);
        tabs().setSelectedIndex(2);
        return *qobject_cast<SettingsViewController*>(stack(2).topViewController());
    }

    std::shared_ptr<LinkList> m_links = std::make_shared<LinkList>();
    ScriptedMailDrafts* m_mail;
};

} // namespace

TEST_F(SettingsScreens, OnlyTheNamedRowsLeadAnywhere) {
    struct Case {
        int section, row;
        bool hasConsent;
        QStringList opened, events;
    };
    const Case cases[] = {
        {0, 0, true, {}, {}},
        {0, 1, true, {}, {}},
        {0, 2, true, {Endpoints::developerPage}, {u"developer_tapped"_s}},
        {0, 2, false, {Endpoints::developerPage}, {}},
        {1, 0, true, {Endpoints::makerWebSite}, {}},
        {2, 0, true, {}, {}},
    };
    m_mail->isThere = false;
    SettingsViewController& settings = showSettings();
    for (const Case& tapped : cases) {
        SCOPED_TRACE(tapped.section * 10 + tapped.row);
        UserSettings::shared().setSendUsageData(tapped.hasConsent);
        m_links->opened.clear();
        m_services.analytics->reset();
        settings.selectRow(tapped.section, tapped.row);
        EXPECT_EQ(settings.indexPathForSelectedRow(), std::nullopt);
        EXPECT_EQ(m_links->opened, tapped.opened);
        EXPECT_EQ(events(), tapped.events);
        EXPECT_TRUE(isAtHome());
    }
    settings.seeMoreTapped();
    EXPECT_EQ(m_links->opened.last(), Endpoints::productWebSite);
}

TEST_F(SettingsScreens, AMailsEndClosesTheComposerAndIsToldWhenKnown) {
    using Composer = MFMailComposeViewController;
    SettingsViewController& settings = showSettings();
    const struct {
        std::function<void(Composer&)> end;
        QString told;
    } cases[] = {
        {[this](Composer&) { m_mail->end(MailDrafts::Outcome::Saved); }, {}},
        {[this](Composer&) { window().goBack(); }, {}},
        {[this](Composer&) { m_mail->end(MailDrafts::Outcome::Failed); }, u"Error: Failed to send email"_s},
        {[&settings](Composer& composer) {
             settings.mailComposeControllerDidFinishWith(composer, MFMailComposeResult::Sent, std::nullopt);
         },
         u"Message Sent: We will review it and respond shortly"_s},
    };
    for (const auto& each : cases) {
        settings.selectRow(1, 0);
        auto& composer = await<Composer>();
        EXPECT_EQ(m_mail->draft.subject, u"Reelsmith Problem"_s);
        EXPECT_EQ(m_mail->draft.recipients, Endpoints::supportRecipients);
        each.end(composer);
        if (!each.told.isEmpty()) {
            auto& alert = await<UIAlertController>();
            EXPECT_EQ(alert.title() + u": "_s + alert.message(), each.told);
            EXPECT_EQ(alert.actions().first().toMap().value(u"title"_s), u"OK"_s);
            alert.press(0);
        }
        EXPECT_TRUE(isAtHome());
        EXPECT_FALSE(m_mail->isComposing());
    }
    EXPECT_TRUE(m_links->opened.isEmpty());
}

TEST_F(SettingsScreens, TheLicencesHoldTheTermsOfTheApplicationWhole) {
    showSettings().licencesTapped();
    ASSERT_TRUE(runLoopUntil([this] { return stack(2).topViewController()->isVisible(); }));
    auto* licences = qobject_cast<LicencesViewController*>(stack(2).topViewController());
    ASSERT_NE(licences, nullptr);
    const QString terms = licences->licenceLabel()->text();
    EXPECT_TRUE(terms.contains(u"\nEND OF TERMS AND CONDITIONS\n"_s));
    EXPECT_TRUE(
        terms.contains(u"\n  The GNU General Public License is a free, copyleft license for software and "
                       "other kinds of works.\n"_s));
    EXPECT_TRUE(terms.contains(u"<https://fsf.org/>\n Everyone is permitted"_s));
}

TEST_F(SettingsScreens, AHighRatingIsRememberedAndLeadsToTheStore) {
    struct Case {
        QList<int> tags;
        bool hasConsent;
        qint64 rating;
        bool isHigh;
    };
    const Case cases[] = {{{3, 1}, true, 2, false},
                          {{2}, true, 3, false},
                          {{1, 3}, true, 4, true},
                          {{4, 4}, false, 5, true},
                          {{4}, true, 5, true}};
    PlatformServices::shared().storePage = std::make_unique<Store>();
    bool isAsked = false; // which happens once for a version
    for (const Case& rated : cases) {
        SCOPED_TRACE(rated.rating);
        UserSettings::shared().setAchievedSuccess(false);
        UserSettings::shared().setSendUsageData(rated.hasConsent);
        m_services.analytics->reset();
        tabs().present(std::make_unique<FeedbackViewController>(), Animated::Yes);
        auto& screen = await<FeedbackViewController>();
        EXPECT_EQ(screen.evaluation(), 0);
        EXPECT_FALSE(screen.sendButton()->isEnabled());
        for (const int tag : rated.tags)
            screen.starEvaluationView()->starSelected(tag);
        EXPECT_EQ(screen.starEvaluationView()->litStarCount(), rated.rating);
        EXPECT_TRUE(screen.sendButton()->isEnabled());
        screen.sendTapped();
        screen.sendTapped(); // a double tap
        if (rated.isHigh && !std::exchange(isAsked, true)) {
            await<UIAlertController>();
            window().goBack();
        }
        EXPECT_TRUE(isAtHome());
        EXPECT_EQ(UserSettings::shared().achievedSuccess(), rated.isHigh);
        QList<InMemoryAnalytics::Event> expected;
        if (rated.hasConsent)
            expected.append({u"evaluated_app"_s, AnalyticsParameters{{u"rating"_s, rated.rating}}});
        EXPECT_EQ(m_services.analytics->state().events, expected);
    }
}
