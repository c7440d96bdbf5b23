// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/MainNavigationController.h"
#include "app/MainTabBarController.h"
#include "conversion/ProgressViewController.h"
#include "conversion/VideoConversionViewController.h"
#include "library/ConvertedVideoCollectionViewCell.h"
#include "library/ConvertedVideosViewController.h"
#include "library/VideoCollectionViewCell.h"
#include "library/VideoDetailViewController.h"
#include "library/VideoInfoCell.h"
#include "library/VideoTableViewCell.h"
#include "library/VideosViewController.h"
#include "platform/screens/AVPlayerViewController.h"
#include "platform/screens/MFMailComposeViewController.h"
#include "platform/screens/UIActivityViewController.h"
#include "platform/screens/UIDocumentPickerCell.h"
#include "platform/screens/UIDocumentPickerViewController.h"
#include "platform/screens/UIImagePickerCell.h"
#include "platform/screens/UIImagePickerController.h"
#include "platform/uikit/AVPlayerLayer.h"
#include "platform/uikit/Button.h"
#include "platform/uikit/CellsView.h"
#include "platform/uikit/ImageView.h"
#include "platform/uikit/Label.h"
#include "platform/uikit/LayoutConstraint.h"
#include "platform/uikit/ProgressView.h"
#include "platform/uikit/ReusableCell.h"
#include "platform/uikit/SegmentedControl.h"
#include "platform/uikit/Slider.h"
#include "platform/uikit/Switch.h"
#include "platform/uikit/TextField.h"
#include "platform/uikit/UIAlertController.h"
#include "platform/uikit/UIBarButtonItem.h"
#include "platform/uikit/UICollectionView.h"
#include "platform/uikit/UICollectionViewCell.h"
#include "platform/uikit/UIContextMenuController.h"
#include "platform/uikit/UINavigationController.h"
#include "platform/uikit/UITabBarController.h"
#include "platform/uikit/UITableView.h"
#include "platform/uikit/UITableViewCell.h"
#include "platform/uikit/UITableViewController.h"
#include "platform/uikit/UIViewController.h"
#include "platform/uikit/View.h"
#include "settings/FeedbackViewController.h"
#include "settings/LicencesViewController.h"
#include "settings/OnboardingViewControllerV2.h"
#include "settings/SettingsViewController.h"
#include "settings/StarEvaluationView.h"
#include "sources/ConversionQualityViewController.h"
#include "sources/URLInputViewController.h"
#include "sources/VideoOptionsViewController.h"

#include <QtQml/qqml.h>

namespace reelsmith {

// How QML knows the classes of the layers below, which know nothing of QML.

struct MainNavigationControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::MainNavigationController)
    QML_NAMED_ELEMENT(MainNavigationController)
    QML_UNCREATABLE("Comes with its screen")
};

struct MainTabBarControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::MainTabBarController)
    QML_NAMED_ELEMENT(MainTabBarController)
    QML_UNCREATABLE("Comes with its screen")
};

struct ProgressViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::ProgressViewController)
    QML_NAMED_ELEMENT(ProgressViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct VideoConversionViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::VideoConversionViewController)
    QML_NAMED_ELEMENT(VideoConversionViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct ConvertedVideoCollectionViewCellForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::ConvertedVideoCollectionViewCell)
    QML_NAMED_ELEMENT(ConvertedVideoCollectionViewCell)
    QML_UNCREATABLE("A view's cell")
};

struct ConvertedVideosViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::ConvertedVideosViewController)
    QML_NAMED_ELEMENT(ConvertedVideosViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct VideoCollectionViewCellForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::VideoCollectionViewCell)
    QML_NAMED_ELEMENT(VideoCollectionViewCell)
    QML_UNCREATABLE("A view's cell")
};

struct VideoDetailViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::VideoDetailViewController)
    QML_NAMED_ELEMENT(VideoDetailViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct VideoInfoCellForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::VideoInfoCell)
    QML_NAMED_ELEMENT(VideoInfoCell)
    QML_UNCREATABLE("A view's cell")
};

struct VideoTableViewCellForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::VideoTableViewCell)
    QML_NAMED_ELEMENT(VideoTableViewCell)
    QML_UNCREATABLE("A view's cell")
};

struct VideosViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::VideosViewController)
    QML_NAMED_ELEMENT(VideosViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct ButtonForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::Button)
    QML_NAMED_ELEMENT(Button)
    QML_UNCREATABLE("A controller's outlet")
};

struct ImageViewForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::ImageView)
    QML_NAMED_ELEMENT(ImageView)
    QML_UNCREATABLE("A controller's outlet")
};

struct LabelForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::Label)
    QML_NAMED_ELEMENT(Label)
    QML_UNCREATABLE("A controller's outlet")
};

struct LayoutConstraintForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::LayoutConstraint)
    QML_NAMED_ELEMENT(LayoutConstraint)
    QML_UNCREATABLE("A controller's outlet")
};

struct ProgressViewForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::ProgressView)
    QML_NAMED_ELEMENT(ProgressView)
    QML_UNCREATABLE("A controller's outlet")
};

struct SegmentedControlForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::SegmentedControl)
    QML_NAMED_ELEMENT(SegmentedControl)
    QML_UNCREATABLE("A controller's outlet")
};

struct SliderForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::Slider)
    QML_NAMED_ELEMENT(Slider)
    QML_UNCREATABLE("A controller's outlet")
};

struct SwitchForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::Switch)
    QML_NAMED_ELEMENT(Switch)
    QML_UNCREATABLE("A controller's outlet")
};

struct TextFieldForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::TextField)
    QML_NAMED_ELEMENT(TextField)
    QML_UNCREATABLE("A controller's outlet")
};

struct UIAlertControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UIAlertController)
    QML_NAMED_ELEMENT(UIAlertController)
    QML_UNCREATABLE("Comes with its screen")
};

struct UIBarButtonItemForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UIBarButtonItem)
    QML_NAMED_ELEMENT(UIBarButtonItem)
    QML_UNCREATABLE("A controller's outlet")
};

struct UINavigationControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UINavigationController)
    QML_NAMED_ELEMENT(UINavigationController)
    QML_UNCREATABLE("Comes with its screen")
};

struct UITabBarControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UITabBarController)
    QML_NAMED_ELEMENT(UITabBarController)
    QML_UNCREATABLE("Comes with its screen")
};

struct UIViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UIViewController)
    QML_NAMED_ELEMENT(UIViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct ViewForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::View)
    QML_NAMED_ELEMENT(View)
    QML_UNCREATABLE("A controller's outlet")
};

struct ContentViewForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::ContentView)
    QML_NAMED_ELEMENT(ContentView)
    QML_UNCREATABLE("A view's content")
};

struct InstantiatiableXibForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::InstantiatiableXib)
    QML_NAMED_ELEMENT(InstantiatiableXib)
    QML_UNCREATABLE("A controller's outlet")
};

struct StarEvaluationViewForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::StarEvaluationView)
    QML_NAMED_ELEMENT(StarEvaluationView)
    QML_UNCREATABLE("A controller's outlet")
};

struct FeedbackViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::FeedbackViewController)
    QML_NAMED_ELEMENT(FeedbackViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct AVPlayerLayerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::AVPlayerLayer)
    QML_NAMED_ELEMENT(AVPlayerLayer)
    QML_UNCREATABLE("A controller's outlet")
};

struct AVPlayerViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::AVPlayerViewController)
    QML_NAMED_ELEMENT(AVPlayerViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct OnboardingViewControllerV2Foreign {
    Q_GADGET
    QML_FOREIGN(reelsmith::OnboardingViewControllerV2)
    QML_NAMED_ELEMENT(OnboardingViewControllerV2)
    QML_UNCREATABLE("Comes with its screen")
};

struct LicencesViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::LicencesViewController)
    QML_NAMED_ELEMENT(LicencesViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct MFMailComposeViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::MFMailComposeViewController)
    QML_NAMED_ELEMENT(MFMailComposeViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct UITableViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UITableViewController)
    QML_NAMED_ELEMENT(UITableViewController)
    QML_UNCREATABLE("A class of screens")
};

struct SettingsViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::SettingsViewController)
    QML_NAMED_ELEMENT(SettingsViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct ConversionQualityViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::ConversionQualityViewController)
    QML_NAMED_ELEMENT(ConversionQualityViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct URLInputViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::URLInputViewController)
    QML_NAMED_ELEMENT(URLInputViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct VideoOptionsViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::VideoOptionsViewController)
    QML_NAMED_ELEMENT(VideoOptionsViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct UIActivityViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UIActivityViewController)
    QML_NAMED_ELEMENT(UIActivityViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct UIDocumentPickerCellForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UIDocumentPickerCell)
    QML_NAMED_ELEMENT(UIDocumentPickerCell)
    QML_UNCREATABLE("A view's cell")
};

struct UIDocumentPickerViewControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UIDocumentPickerViewController)
    QML_NAMED_ELEMENT(UIDocumentPickerViewController)
    QML_UNCREATABLE("Comes with its screen")
};

struct UIImagePickerCellForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UIImagePickerCell)
    QML_NAMED_ELEMENT(UIImagePickerCell)
    QML_UNCREATABLE("A view's cell")
};

struct UIImagePickerControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UIImagePickerController)
    QML_NAMED_ELEMENT(UIImagePickerController)
    QML_UNCREATABLE("Comes with its screen")
};

struct CellsViewForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::CellsView)
    QML_NAMED_ELEMENT(CellsView)
    QML_UNCREATABLE("A controller's outlet")
};

struct ReusableCellForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::ReusableCell)
    QML_NAMED_ELEMENT(ReusableCell)
    QML_UNCREATABLE("A view's cell")
};

struct UICollectionViewForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UICollectionView)
    QML_NAMED_ELEMENT(UICollectionView)
    QML_UNCREATABLE("A controller's outlet")
};

struct UICollectionViewCellForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UICollectionViewCell)
    QML_NAMED_ELEMENT(UICollectionViewCell)
    QML_UNCREATABLE("A view's cell")
};

struct UIContextMenuControllerForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UIContextMenuController)
    QML_NAMED_ELEMENT(UIContextMenuController)
    QML_UNCREATABLE("Comes with its screen")
};

struct UITableViewForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UITableView)
    QML_NAMED_ELEMENT(UITableView)
    QML_UNCREATABLE("A controller's outlet")
};

struct UITableViewCellForeign {
    Q_GADGET
    QML_FOREIGN(reelsmith::UITableViewCell)
    QML_NAMED_ELEMENT(UITableViewCell)
    QML_UNCREATABLE("A view's cell")
};

} // namespace reelsmith
