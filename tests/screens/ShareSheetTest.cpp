// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScreensTest.h"

#include "platform/foundation/URLs.h"
#include "platform/screens/UIActivityViewController.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UIScreen.h"

#include <QFile>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

using Action = FileSharing::Action;
using Outcome = FileSharing::Outcome;

class ShareSheet : public ScreensTest {
protected:
    UIActivityViewController& presentSheet(const QStringList& excluded = {UIActivityTypeAssignToContact}) {
        QFile file(m_folder.filePath(u"Familienfest 60.mp4"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(37'600'000));
        auto sheet =
            std::make_unique<UIActivityViewController>(QList<QUrl>{fileUrl(file.fileName().toStdString())});
        sheet->setExcludedActivityTypes(excluded);
        sheet->setCompletionWithItemsHandler([this] { ++m_completions; });
        return present(std::move(sheet));
    }
    static QStringList titles(const UIActivityViewController& sheet) {
        QStringList all;
        for (const QVariant& entry : sheet.entries())
            all.append(entry.toMap().value(u"title"_s).toString());
        return all;
    }

    int m_completions = 0;
};

} // namespace

TEST_F(ShareSheet, ItOffersWhatThereIsAServiceFor) {
    const UIActivityViewController& sheet = presentSheet();
    EXPECT_EQ(titles(sheet), (QStringList{u"Open with another app"_s, u"Save a copy"_s, u"Copy file"_s}));
    EXPECT_FALSE(sheet.isFullScreen());
    root().dismiss(Animated::No);
    settle();
    EXPECT_EQ(titles(presentSheet({UIActivityTypeOpenWith, UIActivityTypeCopyToPasteboard})),
              QStringList{u"Save a copy"_s});
}

TEST_F(ShareSheet, ItsHeaderSaysWhatIsShared) {
    UIActivityViewController& sheet = presentSheet();
    EXPECT_EQ(sheet.nameLabel()->text(), u"Familienfest 60.mp4"_s);
    EXPECT_EQ(sheet.detailLabel()->text(), u"37.6 MB"_s);
}

TEST_F(ShareSheet, HoweverItEndsItsHandlerRunsOnce) {
    using Sheet = UIActivityViewController;
    const std::vector<std::pair<const char*, std::function<void(Sheet&)>>> endings{
        {"an entry is done",
         [this](Sheet& sheet) { sheet.perform(1), m_sharing->answer(Outcome::Done, {}); }},
        {"an entry is cancelled", [this](Sheet& sheet) { sheet.perform(1), m_sharing->cancel(); }},
        {"closed", [](Sheet& sheet) { sheet.cancelTapped(), sheet.cancelTapped(); }},
        {"Escape", [this](Sheet&) { m_window.goBack(); }},
        {"Escape while an entry is at work", [this](Sheet& sheet) { sheet.perform(0), m_window.goBack(); }},
        {"taken away", [this](Sheet&) { root().dismiss(Animated::Yes); }},
        {"taken away while an entry is at work",
         [this](Sheet& sheet) { sheet.perform(0), root().dismiss(Animated::Yes); }},
    };
    for (const auto& [name, end] : endings) {
        m_completions = 0;
        end(presentSheet());
        EXPECT_EQ(m_completions, 0) << name;
        settle();
        EXPECT_EQ(m_completions, 1) << name;
        EXPECT_TRUE(isNothingPresented()) << name;
        EXPECT_FALSE(m_sharing->isAsked()) << name;
    }
}

TEST_F(ShareSheet, OneEntryActsAtATime) {
    UIActivityViewController& sheet = presentSheet();
    sheet.perform(2);
    EXPECT_TRUE(sheet.isActing());
    sheet.perform(0);
    EXPECT_EQ(m_sharing->m_actions, QList<Action>{Action::CopyFile});
}

TEST_F(ShareSheet, AFailureIsToldAndTheSheetStays) {
    UIActivityViewController& sheet = presentSheet();
    sheet.perform(1);
    m_sharing->answer(Outcome::Failed, u"The disk is full."_s);
    settle();
    auto* alert = qobject_cast<UIAlertController*>(m_window.frontmost());
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->message(), u"The disk is full."_s);
    alert->press(0);
    settle();
    EXPECT_EQ(m_window.frontmost(), &sheet);
    EXPECT_FALSE(sheet.isActing());
    EXPECT_EQ(m_completions, 0);
}

TEST_F(ShareSheet, OnATabletItIsAPopoverAtItsAnchor) {
    EXPECT_FALSE(UIActivityViewController({}).isPopover());
    UIScreen::main().setWindowSize({1280, 800});
    UIActivityViewController sheet({});
    UIScreen::main().setWindowSize({390, 844});
    EXPECT_TRUE(sheet.isPopover());
    sheet.setPopoverSource(root(), QRectF(195, 400, 0, 0));
    EXPECT_EQ(sheet.popoverAnchor(), QRectF(195, 400, 0, 0));
}
