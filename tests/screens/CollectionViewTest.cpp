// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScreensTest.h"

#include "platform/uikit/UICollectionView.h"
#include "platform/uikit/UIContextMenuController.h"

#include <set>

using namespace reelsmith;
using namespace Qt::StringLiterals;

namespace {

struct Tile : UICollectionViewCell {
    int m_item = -1;
};

/// A collection of square tiles, and the screen that fills it.
class Grid : public QObject, public UICollectionViewDataSource, public UICollectionViewDelegate {
public:
    Grid() {
        m_view.registerClass<Tile>(u"tile"_s);
        m_view.setDataSource(this);
        m_view.setDelegate(this);
        m_view.setCollectionViewLayout({{0, 0, 0, 0}, {100, 100}, 0, 0});
        m_view.setViewport(0, 300, 300);
    }

    int collectionViewNumberOfItemsInSection(UICollectionView&, int) override { return m_count; }
    CellsView::Cell collectionViewCellForItemAt(UICollectionView& view, const IndexPath& path) override {
        CellsView::Cell cell = view.dequeueReusableCell(u"tile"_s);
        dynamic_cast<Tile&>(*cell).m_item = path.item;
        m_used.insert(cell.get());
        return cell;
    }
    void collectionViewDidSelectItemAt(UICollectionView&, const IndexPath& path) override {
        m_selected.push_back(path.item);
    }
    std::optional<UIContextMenuConfiguration>
    collectionViewContextMenuConfigurationForItemAt(UICollectionView&, const IndexPath& path) override {
        return UIContextMenuConfiguration{
            {}, {{u"Share"_s, u"square.and.arrow.up"_s, UIAction::Style::Destructive, [this, path] {
                      m_chosen = path.item;
                  }}}};
    }

    /// Which items the cells in sight stand for.
    std::vector<int> shown() const {
        std::vector<int> items;
        for (int item = 0; item < m_count; ++item) {
            if (const auto* tile = dynamic_cast<const Tile*>(m_view.cell(item)))
                items.push_back(tile->m_item);
        }
        return items;
    }

    int m_count = 30;
    int m_chosen = -1;
    std::vector<int> m_selected;
    std::set<const QObject*> m_used;
    UICollectionView m_view;
};

} // namespace

TEST(FlowLayout, ItemsSpreadOverTheirLines) {
    struct Case {
        const char* name;
        qreal width;
        std::vector<QSizeF> sizes;
        std::vector<QPointF> places;
    };
    const UICollectionViewFlowLayout layout{{16, 32, 16, 0}, {}, 8, 8};
    const QSizeF tile(167.5, 167.5), wide(300, 50), third(109, 10);
    const std::vector<Case> cases{
        {"two fill a line", 375, {tile, tile, tile}, {{16, 32}, {191.5, 32}, {16, 207.5}}},
        {"what is left over stands between", 400, {tile, tile}, {{16, 32}, {216.5, 32}}},
        {"one that could have a neighbour stands left", 375, {tile}, {{16, 32}}},
        {"one that could not stands in the middle", 375, {wide}, {{37.5, 32}}},
        {"a shorter one stands in the middle of its line", 375, {tile, {100, 67.5}}, {{16, 32}, {191.5, 82}}},
        {"thirds add up", 375.0000001, {third, third, third}, {{16, 32}, {133, 32}, {250, 32}}},
        {"nothing", 375, {}, {}},
    };
    for (const Case& c : cases) {
        const std::vector<QRectF> frames = layout.frames(c.width, c.sizes);
        ASSERT_EQ(frames.size(), c.places.size()) << c.name;
        for (std::size_t i = 0; i < frames.size(); ++i) {
            EXPECT_NEAR(frames[i].left(), c.places[i].x(), 0.01) << c.name << " item " << i;
            EXPECT_NEAR(frames[i].top(), c.places[i].y(), 0.01) << c.name << " item " << i;
        }
    }
}

TEST(CollectionView, OnlyWhatIsInSightHasCellsAndTheseAreUsedAgain) {
    Grid grid;
    EXPECT_EQ(grid.m_view.contentHeight(), 1000);
    EXPECT_EQ(grid.shown(), (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8}));
    for (qreal top = 0; top <= 700; top += 30)
        grid.m_view.setViewport(top, 300, 300);
    grid.m_view.setViewport(700, 300, 300);
    EXPECT_EQ(grid.shown(), (std::vector{21, 22, 23, 24, 25, 26, 27, 28, 29}));
    EXPECT_EQ(grid.m_used.size(), 12u);
    EXPECT_EQ(grid.m_view.cells()->rowCount(), 12);
}

TEST(CollectionView, AReloadGivesEachItemTheCellThatItHad) {
    Grid grid;
    const ReusableCell* fifth = grid.m_view.cell(5);
    grid.m_view.reloadData();
    EXPECT_EQ(grid.m_view.cell(5), fifth);
    grid.m_count = 2;
    grid.m_view.reloadData();
    EXPECT_EQ(grid.shown(), (std::vector{0, 1}));
    EXPECT_EQ(grid.m_view.cells()->rowCount(), 9);
}

TEST(CollectionView, AnotherWidthMovesTheCells) {
    Grid grid;
    const ReusableCell* third = grid.m_view.cell(2);
    grid.m_view.setViewport(0, 200, 300);
    EXPECT_EQ(grid.m_view.cell(2), third);
    EXPECT_EQ(third->frame(), QRectF(0, 100, 100, 100));
    EXPECT_EQ(grid.shown().size(), 6u);
}

TEST(CollectionView, KeysMoveThroughTheItems) {
    Grid grid;
    grid.m_count = 8;
    grid.m_view.reloadData();
    grid.m_view.setFocused(true);
    const std::vector<std::pair<int, int>> steps{
        {Qt::Key_Down, 0}, {Qt::Key_Right, 1}, {Qt::Key_Down, 4}, {Qt::Key_Left, 3}, {Qt::Key_End, 7},
        {Qt::Key_Down, 7}, {Qt::Key_Right, 7}, {Qt::Key_Up, 4},   {Qt::Key_Home, 0}, {Qt::Key_Up, 0},
    };
    int step = 0;
    for (const auto& [key, item] : steps) {
        grid.m_view.pressKey(key);
        ASSERT_NE(grid.m_view.cell(item), nullptr);
        EXPECT_TRUE(grid.m_view.cell(item)->isCurrent()) << "step " << step;
        ++step;
    }
    EXPECT_TRUE(grid.m_view.pressKey(Qt::Key_Return));
    grid.m_view.cell(4)->tap();
    EXPECT_EQ(grid.m_selected, (std::vector{0, 4}));
    EXPECT_FALSE(grid.m_view.pressKey(Qt::Key_A));
    grid.m_view.setFocused(false);
    EXPECT_FALSE(grid.m_view.cell(0)->isCurrent());
}

TEST(CollectionView, TheCurrentItemComesIntoSight) {
    Grid grid;
    grid.m_view.pressKey(Qt::Key_End);
    EXPECT_EQ(grid.m_view.topShowingCurrent(), 700);
    grid.m_view.setViewport(700, 300, 300);
    grid.m_view.pressKey(Qt::Key_Home);
    EXPECT_EQ(grid.m_view.topShowingCurrent(), 0);
}

using ContextMenu = ScreensTest;

TEST_F(ContextMenu, ItsHandlerRunsWhenItHasGone) {
    Grid grid;
    grid.m_view.cell(4)->openMenu({10, 20});
    settle();
    auto* menu = qobject_cast<UIContextMenuController*>(m_window.frontmost());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->cellFrame(), QRectF(110, 120, 100, 100));
    EXPECT_FALSE(menu->isFullScreen());
    const QVariantMap entry = menu->actions().value(0).toMap();
    EXPECT_EQ(entry.value(u"title"_s), u"Share"_s);
    EXPECT_EQ(entry.value(u"image"_s), u"share"_s);
    EXPECT_TRUE(entry.value(u"isDestructive"_s).toBool());
    menu->press(0);
    menu->press(0);
    EXPECT_EQ(grid.m_chosen, -1);
    settle();
    EXPECT_EQ(grid.m_chosen, 4);
    EXPECT_TRUE(isNothingPresented());
}
