// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScreensTest.h"

#include "platform/foundation/URLs.h"
#include "platform/screens/UIDocumentPickerCell.h"
#include "platform/screens/UIDocumentPickerViewController.h"

#include <QDir>
#include <QFile>
#include <filesystem>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

class DocumentPicker : public ScreensTest, public QObject, public UIDocumentPickerDelegate {
protected:
    UIDocumentPickerViewController& presentPicker() {
        auto picker = std::make_unique<UIDocumentPickerViewController>(
            QStringList{u"public.movie"_s, u"org.matroska.mkv"_s},
            UIDocumentPickerViewController::Mode::Import);
        picker->setDelegate(this);
        UIDocumentPickerViewController& shown = present(std::move(picker));
        shown.tableView()->setViewport(0, 390, 10000);
        return shown;
    }
    void documentPickerDidPickDocumentsAt(UIDocumentPickerViewController&, const QList<QUrl>& urls) override {
        m_picked.append(urls);
    }

    static QStringList names(UIDocumentPickerViewController& picker) {
        QStringList all;
        for (int row = 0; row < picker.tableView()->count(); ++row)
            all.append(
                qobject_cast<UIDocumentPickerCell*>(picker.tableView()->cell(row))->nameLabel()->text());
        return all;
    }
    static void tap(UIDocumentPickerViewController& picker, const QString& name) {
        EXPECT_TRUE(runLoopUntil([&] { return names(picker).contains(name); })) << name.toStdString();
        picker.tableView()->cell(static_cast<int>(names(picker).indexOf(name)))->tap();
    }

    QList<QUrl> m_picked;
};

using Answer = DocumentChooser::Answer;

} // namespace

TEST_F(DocumentPicker, EndsWithItsDialogAndTheDialogWithIt) {
    const QUrl film = fileUrl("/tmp/film.mkv");
    struct Case {
        const char* name;
        std::function<void()> end;
        QList<QUrl> picked;
        bool stays, lists;
    };
    for (const Case& c :
         {Case{"picked", [&] { m_chooser->answer(Answer::Picked, film); }, {film}, true, false},
          Case{"cancelled", [&] { m_chooser->answer(Answer::Cancelled, {}); }, {}, false, false},
          Case{"no dialog after all", [&] { m_chooser->answer(Answer::Unavailable, {}); }, {}, true, true},
          Case{"Escape", [&] { m_window.goBack(); }, {}, false, false},
          Case{"taken away", [&] { root().dismiss(Animated::No); }, {}, false, false}}) {
        m_picked.clear();
        const QPointer<UIDocumentPickerViewController> picker = &presentPicker();
        EXPECT_FALSE(picker->isFullScreen()) << c.name;
        EXPECT_EQ(m_chooser->m_kinds.value(0).mimeTypes, (QStringList{u"video/*"_s, u"video/x-matroska"_s}));
        EXPECT_TRUE(m_chooser->isAsked()) << c.name;
        c.end();
        settle();
        EXPECT_FALSE(m_chooser->isAsked()) << c.name;
        EXPECT_EQ(m_picked, c.picked) << c.name;
        ASSERT_EQ(!picker.isNull(), c.stays) << c.name;
        EXPECT_EQ(picker && picker->isListing(), c.lists) << c.name;
        root().dismiss(Animated::No);
        settle();
    }
}

TEST_F(DocumentPicker, WithoutADialogItListsFolders) {
    m_chooser->m_isAvailable = false;
    QDir home = QDir::home();
    ASSERT_TRUE(home.removeRecursively() && home.mkpath(u"."_s));
    for (const QString& folder : {u"b folder"_s, u"A folder"_s, u".secret"_s})
        home.mkdir(folder);
    for (const QString& file : {u"film 10.mp4"_s, u"film 9.mkv"_s, u"notes.txt"_s, u".hidden.mp4"_s})
        QFile(home.filePath(file)).open(QIODevice::WriteOnly);
    QFile(home.filePath(u"A folder/inside.mov"_s)).open(QIODevice::WriteOnly);

    UIDocumentPickerViewController& picker = presentPicker();
    EXPECT_TRUE(picker.isFullScreen());
    EXPECT_TRUE(picker.isAtPlaces());
    EXPECT_EQ(names(picker).mid(0, 2), (QStringList{u"Home"_s, u"Videos"_s}));
    tap(picker, u"Home"_s);
    EXPECT_TRUE(runLoopUntil([&] { return !names(picker).isEmpty(); }));
    EXPECT_EQ(names(picker), (QStringList{u"A folder"_s, u"b folder"_s, u"film 9.mkv"_s, u"film 10.mp4"_s}));
    tap(picker, u"A folder"_s);
    EXPECT_EQ(picker.title(), u"A folder"_s);
    tap(picker, u"inside.mov"_s);
    EXPECT_EQ(m_picked, QList<QUrl>{fileUrl(home.filePath(u"A folder/inside.mov"_s).toStdString())});

    EXPECT_TRUE(m_window.goBack());
    tap(picker, u"b folder"_s);
    EXPECT_TRUE(runLoopUntil([&] { return !picker.emptyStateView()->isHidden(); }));
    EXPECT_TRUE(m_window.goBack());
    EXPECT_TRUE(m_window.goBack());
    EXPECT_TRUE(picker.isAtPlaces());
    EXPECT_TRUE(m_window.goBack());
    settle();
    EXPECT_TRUE(isNothingPresented());
}
